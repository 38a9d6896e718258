#include "controls/FieldNames.h"

#include <QComboBox>
#include <QLabel>

namespace quillshift {
namespace {

QString NameIn(QString caption) {
    caption.remove(u'&');
    if (caption.endsWith(u':'))
        caption.chop(1);
    return caption;
}

} // namespace

void NameFieldsByLabels(const QWidget& dialog) {
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        QWidget* const field = label->buddy();
        if (field == nullptr)
            continue;
        if (qobject_cast<QComboBox*>(field) != nullptr)
            field->setAccessibleDescription(NameIn(label->text()));
        else if (field->accessibleName().isEmpty())
            field->setAccessibleName(NameIn(label->text()));
    }
}

} // namespace quillshift
