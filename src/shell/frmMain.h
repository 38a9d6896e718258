#pragma once

#include "commandbar/PanelControl.h"
#include "platform/qt/QtBarWindow.h"
#include "platform/qt/QtTextSurface.h"
#include "shell/MainView.h"

#include <QFrame>
#include <QTimer>
#include <QWidget>

#include <array>
#include <memory>
#include <optional>

class QComboBox;

namespace quillshift {

/// The main window: shows what it is told and forwards what happens.
class frmMain final : public QWidget, public MainView {
    Q_OBJECT

public:
    /// Both outlive the window.
    frmMain(QtWindowMessages& windowIds, const QtTextMeasurer& texts);
    ~frmMain() override;

    TextSurface& RichTextBox() override { return *richTextBox_; }
    TextSurface& RichTextBoxBackup() override { return richTextBoxBackup_; }
    TextSurface& RichTextBoxImport() override { return richTextBoxImport_; }
    TextSurface& RtfTemp() override { return rtfTemp_; }

    BarWindow& CmdBar(int bar) override { return *cmdBar_[static_cast<std::size_t>(bar)]; }
    BarWindow& AddPopupWindow() override { return *new QtBarWindow(windowIds_, texts_, this); }
    void SetBarVisible(int bar, bool visible) override;
    int Density() const override;
    PanelControl& CmbDecode() override;
    int Direction() const override;
    void SetDirection(int number) override;
    void EnableDirections(bool enabled) override;
    void LayOut(const EditorLayout& layout) override;
    void Show() override;
    void Hide() override;
    bool IsFree() const override;
    void Close() override;

    void SetTitle(std::u16string_view title) override;
    void SetTopMost(bool topMost) override;
    void SetPointer(Pointer pointer) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    TwipsRect Bounds() const override;
    TwipsRect RestoredBounds() const override;
    void SetBounds(const TwipsRect& bounds) override;

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class DirectionsPanel;

    void StackBars();
    bool IsNormal() const;
    void TellActivation();

    QtWindowMessages& windowIds_;
    const QtTextMeasurer& texts_;
    QComboBox* cmbDecode_;
    std::unique_ptr<DirectionsPanel> directionsPanel_;
    std::array<QtBarWindow*, 3> cmdBar_; // owned by the window, as the popups' windows are
    QWidget* picEditor_;
    QFrame* shapeRichTextBox_;
    QtTextSurface* richTextBox_;
    QtTextSurface richTextBoxBackup_;
    QtTextSurface richTextBoxImport_;
    QtTextSurface rtfTemp_;
    std::optional<QPoint> hiddenAt_;
    bool isClosing_ = false; ///< it asks whether it may
    TwipsRect restored_;     ///< place and size as last seen in the normal state
    QTimer placed_;          ///< looks at them once a change has come to rest
    QTimer activated_;       ///< waits for the press that the keyboard came by
    QFrame* lines_[3] = {};  // under the menu, the standard and the recoding toolbar
};

} // namespace quillshift
