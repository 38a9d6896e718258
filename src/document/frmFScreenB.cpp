#include "document/frmFScreenB.h"

#include "base/Placing.h"

#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr Twips kWidth = 2535_twips; // of the client area
constexpr Twips kHeight = 495_twips;

} // namespace

frmFScreenB::frmFScreenB(const DialogContext& context, FullScreen& mode)
    : Dialog(context, QStringLiteral("     Полноэкранный режим"), DialogSounds::None), mode_(mode) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint);
    SetWindowTopMost(*this, true);
    setAttribute(Qt::WA_ShowWithoutActivating); // the keyboard is for the text
    auto* cmdExit = AddButton("cmdExit", QStringLiteral("Вернуть обычный режим"));
    cmdExit->setDefault(true);
    cmdExit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(cmdExit);
    setFixedSize(QSize(ToPixels(kWidth), ToPixels(kHeight)).expandedTo(all->sizeHint()));
    connect(cmdExit, &QPushButton::clicked, this, [this] { mode_.End(); });
    const TwipsRect stored{{context.settings.Number(Setting::FullScreenLeft)},
                           {context.settings.Number(Setting::FullScreenTop)},
                           FromPixels(width()),
                           FromPixels(height())};
    const TwipsRect place = WithinReach(stored, context.platform.screen.WorkAreas());
    move(ToPixels(place.left), ToPixels(place.top));
}

void frmFScreenB::StorePlace() {
    if (isMinimized())
        return;
    Context().settings.Set(Setting::FullScreenLeft, DecimalText(FromPixels(x()).value));
    Context().settings.Set(Setting::FullScreenTop, DecimalText(FromPixels(y()).value));
}

void frmFScreenB::closeEvent(QCloseEvent* /*event*/) {
    mode_.End();
}

} // namespace quillshift
