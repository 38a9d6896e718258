#pragma once

class QFileDialog;
class QWidget;

namespace quillshift {

/// What a new dialog belongs to; null for none.
QWidget* DialogOwner();

/// Ties the labels of the toolkit's dialog to their fields, for those who do not see what stands beside them.
void NameFields(const QFileDialog& dialog);

} // namespace quillshift
