#include "settings/frmLicense.h"

#include "document/FileText.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/QtTextSurface.h"

#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr QSize kFirstSize(560, 420);

} // namespace

frmLicense::frmLicense(const DialogContext& context)
    : Dialog(context, QStringLiteral("Лицензионное соглашение")) {
    auto* text = Add<QtTextSurface>("RichTextBox", nullptr, EditingKeys::OfSurface);
    const std::u16string path = context.platform.shell.ProgramFolder() + u"/License.rtf";
    FileText(context.platform.files.Read(path).bytes).LoadInto(*text);
    text->SetZoom(Larger(100));
    text->setReadOnly(true);
    text->setAccessibleName(windowTitle());
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* cmdClose = AddButton("cmdClose", QStringLiteral("OK"));
    cmdClose->setDefault(true);

    auto* all = new QVBoxLayout(this);
    all->addWidget(text);
    all->addWidget(cmdClose, 0, Qt::AlignRight);
    resize(Larger(kFirstSize.width()), Larger(kFirstSize.height()));
    cmdClose->setFocus();
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace quillshift
