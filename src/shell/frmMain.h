#pragma once

#include "platform/qt/QtTextSurface.h"
#include "recoding/frmDecoding.h"
#include "shell/MainView.h"

#include <QFrame>
#include <QWidget>

class QComboBox;

namespace quillshift {

class CommandBars;
class Program;

/// The main window: shows state and forwards events to the program.
class frmMain final : public QWidget, public MainView {
    Q_OBJECT

public:
    frmMain(Program& program, MessageBox& messageBox);
    ~frmMain() override;

    TextSurface& RichTextBox() override { return *richTextBox_; }
    TextSurface& RichTextBoxBackup() override { return richTextBoxBackup_; }
    TextSurface& RichTextBoxImport() override { return richTextBoxImport_; }
    DecodingView& Decoding() override { return decoding_; }

    void BuildBars() override;
    void SetBarVisible(int bar, bool visible) override;
    void SetBarHeight(int bar, Twips height) override;
    void SetChecked(std::string_view key, bool checked) override;
    void SetEnabled(std::string_view key, bool enabled) override;
    bool IsChecked(std::string_view key) const override;
    int Direction() const override;
    void SetDirection(int number) override;
    void LayOut(const EditorLayout& layout) override;
    void ShowDecodeDialog() override;
    void Show() override { show(); }
    void Close() override { close(); }

    void SetTitle(std::u16string_view title) override;
    void SetTopMost(bool topMost) override;
    void SetPointer(Pointer pointer) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    TwipsRect Bounds() const override;
    TwipsRect RestoredBounds() const override;
    void SetBounds(const TwipsRect& bounds) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QFrame* Line();

    Program& program_;
    DecodingDialog decoding_;
    CommandBars* bars_ = nullptr;
    QComboBox* cmbDecode_;
    QWidget* picEditor_;
    QFrame* shapeRichTextBox_;
    QtTextSurface* richTextBox_;
    QtTextSurface richTextBoxBackup_;
    QtTextSurface richTextBoxImport_;
    QFrame* lines_[3] = {}; // under the menu, the standard and the recoding toolbar
};

} // namespace quillshift
