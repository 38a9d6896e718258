#pragma once

#include "document/DocumentState.h"
#include "document/FileText.h"
#include "document/Recovery.h"
#include "document/Saving.h"
#include "platform/Platform.h"
#include "platform/TextSurface.h"
#include "platform/Window.h"
#include "settings/SoundEvents.h"

#include <functional>
#include <string_view>

namespace quillshift {

/// The document's way from disk into the surface and out again. A failure of a routine is shown in a box, and
/// the routine ends where it stands.
class modDocument {
public:
    struct Services {
        DocumentState& state;
        Settings& settings;
        SoundEvents& sounds;
        Platform& platform;
        TextSurface& document; ///< `RichTextBox`
        TextSurface& backup;   ///< `RichTextBoxBackup`: the document as it last stood on disk
        TextSurface& import;   ///< `RichTextBoxImport`: the file being imported
        TextSurface& inserted; ///< `rtfTemp`: the file being inserted
        Window& mainWindow;
        Recovery& recovery;
        std::function<void()> startDecode;
        std::function<void()> paste; ///< puts the clipboard's text in at the caret
        /// Puts a text on the clipboard that is on its way into the document: no news to the watcher.
        std::function<void(std::u16string_view)> copy;
    };

    explicit modDocument(Services services)
        : services_(std::move(services)), saving_(services_.platform.files, services_.platform.messageBox) {}

    // The commands.

    void New();
    void Open();
    void MenuSave();
    void ToolbarSave();
    /// Whether a file was written, its backup included.
    bool SaveAs();
    void ImportRtf();
    /// Puts the text of a file, plain or RTF, in the place of the selection, by way of the clipboard.
    void InsertTextFile();

    // The routines behind them. Each reports its own failures; the saves answer whether a file was written.

    void OpenDocument();
    /// Opens a file as the command does, without its dialog.
    void OpenFile(std::u16string_view path);
    /// Loads what a dead copy left, as a changed document.
    void Restore(const RecoveredText& left);
    void ReopenDocument();
    /// As `ReopenDocument`, with the file that the document was last read from or written to.
    void ReopenOwnFile();
    bool SaveDocumentAs();
    bool SaveDocument();

    /// Asks "Yes or No" or "Yes, No or Cancel" about a changed document. `No` when there is nothing to ask.
    BoxAnswer AskToSave(BoxButtons buttons);

private:
    using FileName = std::u16string;

    bool MayDropText();
    void Report(const std::function<void()>& routine);
    void LoadChosen();
    FileText TextOf(std::string bytes, const FileName& path);
    bool LoadBoth();
    void NameFile(const FileName& path);
    void BeforeReplacing();
    void NoteFile(const FileName& path, bool isRich);
    void PointSaveAtOpenedFile(bool plain);
    bool ImportRtfFile(std::u16string_view filter, std::u16string_view extension, std::u16string_view title);
    void InsertImported();
    FileContents ReadOrThrow(const FileName& path);
    bool AskAboutLostCharacters(std::u16string_view text);
    bool WriteDocument(const FileName& path, bool isPlainSave);
    FileName BackupPath(const FileName& path) const;
    void ApplyCaptionRule();
    void SetUpDialog(std::u16string_view title);

    Services services_;
    Saving saving_;
    bool saidNo_ = false; ///< the user lets the present text go
};

} // namespace quillshift
