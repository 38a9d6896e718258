#include "wizard/window/RescueModel.h"

#include "wizard/rescue/RescueWords.h"

#include <QFile>

namespace quillshift::wizard {

namespace {

constexpr const char* kColumns[] = {"Файл", "Что это", "Насколько надёжно"};

// A name is bytes of the system's own.
QString Shown(const RescueRow& row, bool whole) {
    const QString name = row.text ? QString::fromStdString(NameOf(row))
                                  : QFile::decodeName(QByteArray::fromStdString(row.finding.path));
    return whole || row.text ? name : name.section(u'/', -1);
}

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

QVariant RescueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isShown = role == Qt::DisplayRole && orientation == Qt::Horizontal;
    return isShown ? QString::fromUtf8(kColumns[section]) : QVariant();
}

void RescueModel::Follow(const Rescue::News& news) {
    const int changed = std::min(static_cast<int>(news.last), shown_);
    if (changed > static_cast<int>(news.first))
        emit dataChanged(index(static_cast<int>(news.first), 0), index(changed - 1, columnCount() - 1));
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
    endResetModel();
}

} // namespace quillshift::wizard
