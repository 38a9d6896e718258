#pragma once

#include <QFileIconProvider>

namespace quillshift {

/// Pictures and kinds of files for Qt's dialogs, in Russian. Taken from a file's name alone: what lies under
/// /proc may never answer the one who reads it.
class FileKinds final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

} // namespace quillshift
