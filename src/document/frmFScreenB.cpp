#include "document/frmFScreenB.h"

#include "base/Placing.h"

#include <QApplication>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace quillshift {
namespace {

constexpr Twips kWidth = 2535_twips; // of the client area
constexpr Twips kHeight = 495_twips;

// The window manager writes the caption, between an icon, three buttons and some room: about so, in the
// desktop's font.
int WidthOfTitle(const QWidget& window) {
    QFont bold = QApplication::font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(window.windowTitle()) +
           5 * window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

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
    setFixedSize(QSize(std::max(ToPixels(kWidth), WidthOfTitle(*this)), ToPixels(kHeight))
                     .expandedTo(all->sizeHint()));
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
