#pragma once

class QWidget;

namespace quillshift {

/// Tells assistive programs the captions of the labels as the names of their fields: the toolkit does so only
/// for a label that stands in the same container, and not for lists. What has a name already keeps it. The
/// name of a box of choices is what is chosen in it, so that it gets its caption as its description.
void NameFieldsByLabels(const QWidget& dialog);

} // namespace quillshift
