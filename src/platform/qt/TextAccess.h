#pragma once

#include <cstddef>

class QAccessibleEvent;

namespace quillshift {

class QtTextSurface;
struct TextEdit;

/// So many letters are told when they come or go; of more only that there is a change. Whoever wants to read
/// them asks for the part that he is at.
constexpr std::size_t kMostTold = 4000;

/// From now on assistive programs are answered by the text of a surface, with its positions, also where it is
/// not laid out yet. What they ask for without need of a layout fills in none.
void AnnounceTexts();

/// Tells them of an edit.
void AnnounceEdit(QtTextSurface& surface, const TextEdit& edit);
/// Tells them where the caret is and what is selected.
void AnnounceSelection(QtTextSurface& surface);

/// Whether the toolkit tells of its document, which has other positions, what was told here.
bool IsToldOfDocument(const QAccessibleEvent& event);

} // namespace quillshift
