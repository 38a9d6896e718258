#pragma once

class QWidget;

namespace quillshift {

/// What a new dialog belongs to; null for none.
QWidget* DialogOwner();

} // namespace quillshift
