#include "wizard/window/RescueModel.h"

#include "wizard/rescue/RescueWords.h"

#include <QFile>

#include <algorithm>

namespace quillshift::wizard {

namespace {

constexpr const char* kColumns[] = {"Файл", "Что это", "Насколько надёжно"};

} // namespace

RescueModel::RescueModel(const Rescue& rescue, QObject* parent)
    : QAbstractTableModel(parent), rescue_(rescue) {}

int RescueModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

int RescueModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QVariant RescueModel::data(const QModelIndex& index, int role) const {
    const RescueRow& row = rescue_.Rows()[static_cast<std::size_t>(index.row())];
    if (role == Qt::ToolTipRole)
        return Shown(row, true);
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == 0)
        return Shown(row, false);
    return QString::fromStdString(index.column() == 1 ? WhatItIs(row) : HowSure(row, rescue_.WritesIn()));
}

// A name is bytes of the system's own, and is told from its like in another folder.
QString RescueModel::Shown(const RescueRow& row, bool whole) const {
    if (row.text)
        return QString::fromStdString(NameOf(row));
    const std::size_t from = whole || !common_ ? 0 : common_->size();
    return QFile::decodeName(QByteArray::fromStdString(row.finding.path.substr(from)));
}

// By the rows from `first` on. Whether it is another folder now.
bool RescueModel::Narrow(std::size_t first) {
    const auto before = common_;
    for (std::size_t i = first; i < rescue_.Rows().size(); ++i) {
        const RescueRow& row = rescue_.Rows()[i];
        const std::string_view folder = FolderOf(row.finding);
        if (row.text)
            continue;
        if (!common_)
            common_ = folder;
        const auto shared = std::ranges::mismatch(*common_, folder).in1 - common_->begin();
        if (static_cast<std::size_t>(shared) < common_->size())
            common_->resize(common_->rfind('/', static_cast<std::size_t>(std::max(shared - 1, 0L))) + 1);
    }
    return before != common_;
}

QVariant RescueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isShown = role == Qt::DisplayRole && orientation == Qt::Horizontal;
    return isShown ? QString::fromUtf8(kColumns[section]) : QVariant();
}

void RescueModel::Follow(const Rescue::News& news) {
    const bool isOther = Narrow(static_cast<std::size_t>(shown_));
    const int first = isOther ? 0 : static_cast<int>(news.first);
    const int changed = isOther ? shown_ : std::min(static_cast<int>(news.last), shown_);
    if (changed > first)
        emit dataChanged(index(first, 0), index(changed - 1, columnCount() - 1));
    const int count = static_cast<int>(rescue_.Rows().size());
    if (count > shown_) {
        beginInsertRows({}, shown_, count - 1);
        shown_ = count;
        endInsertRows();
    }
}

void RescueModel::Reset() {
    beginResetModel();
    shown_ = static_cast<int>(rescue_.Rows().size());
    common_.reset();
    Narrow(0);
    endResetModel();
}

} // namespace quillshift::wizard
