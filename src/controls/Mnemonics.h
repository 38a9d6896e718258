#pragma once

class QWidget;

namespace quillshift {

/// Marks a letter in each caption of a dialog by which Alt reaches its control: of buttons, boxes and
/// options, and of labels that have a buddy. What is marked already stays, no letter is marked twice where
/// both can be seen: each page of a stack has its own beside those of the dialog around it.
void GiveMnemonics(QWidget& dialog);

} // namespace quillshift
