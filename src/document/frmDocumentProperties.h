#pragma once

#include "controls/Dialog.h"
#include "controls/TabControl.h"
#include "document/modDocumentProperties.h"

class QFormLayout;
class QGridLayout;

namespace quillshift {

class QtTabStrip;

/// Shows what the disk says about the document's file, and changes nothing of it. Its texts can be selected
/// and copied.
class frmDocumentProperties final : public Dialog {
    Q_OBJECT

public:
    explicit frmDocumentProperties(const DialogContext& context);

private:
    void ShowTab(int tab);
    void FillIn();
    void AddFact(QFormLayout& facts, const char* name, const QString& label, const std::u16string& text);
    void AddAttribute(QGridLayout& boxes, int number, const QString& label, bool ticked);

    std::u16string path_; ///< the document's, as it was at the load
    QtTabStrip* strip_;
    TabControl tabProperties_;
    QWidget* picGeneral;
    DialogButton* cmdClose;
};

} // namespace quillshift
