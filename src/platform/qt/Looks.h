#pragma once

#include "platform/qt/DesktopWishes.h"

#include <QFont>
#include <QList>
#include <QObject>
#include <QString>

#include <tuple>
#include <utility>

namespace quillshift {

/// Style, palette and effects of all windows, as the desktop wants them now.
class Looks final : public QObject {
    Q_OBJECT

public:
    explicit Looks(QObject* parent = nullptr);

    void Follow(const DesktopWishes& wishes);

private:
    void Wear(const QString& style, bool still, bool dark);
    void LetEffectsRest(bool rest);
    void Write(double points, double factor);

    QString style_; // the desktop's, as is the font
    QFont font_;
    std::pair<double, double> text_{0, 1};
    std::tuple<QString, bool, bool> worn_{style_, false, false};
    QList<Qt::UIEffect> resting_;
};

} // namespace quillshift
