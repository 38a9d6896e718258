#include "document/frmFind.h"

namespace quillshift {

frmFind::frmFind(const DialogContext& context, Search& search)
    : SearchDialog(context, QStringLiteral("Найти"), search, search.FindState()) {
    ShowState();
}

} // namespace quillshift
