#pragma once

#include "wizard/rescue/Rescue.h"

#include <QAbstractTableModel>

namespace quillshift::wizard {

/// The list as a view shows it: file, what it is, how sure.
class RescueModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit RescueModel(const Rescue& rescue, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Rows have come, or have changed.
    void Follow(const Rescue::News& news);
    /// All is another list now.
    void Reset();

private:
    QString Shown(const RescueRow& row, bool whole) const;
    bool Narrow(std::size_t first);

    const Rescue& rescue_;
    int shown_ = 0;
    std::optional<std::string> common_; ///< the folder all files are in, by its bytes
};

} // namespace quillshift::wizard
