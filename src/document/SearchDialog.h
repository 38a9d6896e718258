#pragma once

#include "controls/Dialog.h"
#include "document/Search.h"

class QComboBox;
class QGridLayout;
class QVBoxLayout;

namespace quillshift {

/// What the dialogs for finding and for replacing have in common. What is in the fields is in the state of
/// the search, too, and goes from there when the user closes the dialog.
class SearchDialog : public Dialog, private SearchView {
    Q_OBJECT

public:
    ~SearchDialog() override;

    /// Selects the text that is searched for.
    void BringUp() override;
    void done(int result) override;

protected:
    SearchDialog(const DialogContext& context, const QString& title, Search& search, SearchState& state);

    /// Adds a row for a text of the state.
    QComboBox* AddText(const char* name, const QString& label, std::u16string SearchState::*text);
    /// Adds a button above the one that closes.
    DialogButton* AddSearchButton(const char* name, const QString& text);
    virtual void ShowState();

private:
    void AddOption(QVBoxLayout& rows, const char* name, const QString& text, FindOptions option);
    void OnSearched() override;
    void MoveAside();

    Search& search_;
    SearchState& state_;
    QGridLayout* fields_;
    QVBoxLayout* buttons_;
    QComboBox* cboFind;
    DialogButton* cmdFind;
};

} // namespace quillshift
