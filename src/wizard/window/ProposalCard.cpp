#include "wizard/window/ProposalCard.h"

#include "wizard/rescue/RescueWords.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QStyle>

namespace quillshift::wizard {

namespace {

QString TextOf(const std::vector<Piece>& pieces) {
    QString text;
    for (const Piece& piece : pieces)
        text += QString::fromStdString(piece.text);
    return text;
}

// On a ground of its own, which is told from the window's by lightness as well as by colour.
QString Marked(const std::vector<Piece>& pieces, const QColor& ground) {
    QString text;
    for (const Piece& piece : pieces) {
        const QString escaped = QString::fromStdString(piece.text).toHtmlEscaped();
        text +=
            piece.differs
                ? QStringLiteral("<span style=\"background-color:%1\">%2</span>").arg(ground.name(), escaped)
                : escaped;
    }
    return text;
}

QLabel* TextLabel() {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return label;
}

QLabel* Caption(const char* text) {
    auto* const label = new QLabel(QString::fromUtf8(text));
    label->setAlignment(Qt::AlignTop | Qt::AlignRight);
    return label;
}

} // namespace

ProposalCard::ProposalCard(const char* name, QWidget* parent)
    : QFrame(parent), option_(new QRadioButton), before_(TextLabel()), after_(TextLabel()) {
    setFrameShape(StyledPanel);
    setObjectName(QLatin1String(name));
    option_->setObjectName(QLatin1String(name) + QStringLiteral("Option"));
    QFont bold = font();
    bold.setBold(true);
    option_->setFont(bold);
    option_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum); // its title goes by the room there is
    auto* const rows = new QGridLayout(this);
    rows->addWidget(option_, 0, 0, 1, 2);
    rows->addWidget(Caption("Было:"), 1, 0);
    rows->addWidget(before_, 1, 1);
    rows->addWidget(Caption("Станет:"), 2, 0);
    rows->addWidget(after_, 2, 1);
    rows->setColumnStretch(1, 1);
    connect(option_, &QRadioButton::clicked, this, &ProposalCard::Chosen);
}

void ProposalCard::Show(const Proposal& proposal) {
    proposal_ = proposal;
    option_->setAccessibleName(QString::fromStdString(TitleOf(proposal)));
    ShowTitle();
    option_->setAccessibleDescription(QStringLiteral("Было: ") + TextOf(proposal.before) +
                                      QStringLiteral(" Станет: ") + TextOf(proposal.after));
    ShowTexts();
}

// On so many lines as it needs: one that went wrong three times has a long one.
void ProposalCard::ShowTitle() {
    const QFontMetrics metrics(option_->font());
    const int room = layout()->contentsRect().width() -
                     style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) -
                     style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing);
    QString title, line;
    for (const QString& part : option_->accessibleName().split(QStringLiteral(", "))) {
        const bool isFirst = line.isEmpty();
        const bool fits = isFirst || metrics.horizontalAdvance(line + QStringLiteral(", ") + part) <= room;
        title += isFirst ? QString() : fits ? QStringLiteral(", ") : QStringLiteral(",\n");
        title += part;
        line = isFirst || !fits ? part : line + QStringLiteral(", ") + part;
    }
    option_->setText(title.replace(u'&', QStringLiteral("&&")));
}

void ProposalCard::ShowTexts() {
    QPalette readable; // also when it is done
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        readable.setColor(QPalette::Disabled, role, palette().color(QPalette::Active, role));
    option_->setPalette(readable);
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    before_->setText(Marked(proposal_.before, isDark ? QColor(0x5C2B2B) : QColor(0xFBD9D3)));
    after_->setText(Marked(proposal_.after, isDark ? QColor(0x24502F) : QColor(0xCDEFD2)));
}

// The whole card is its option.
void ProposalCard::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
        option_->isEnabled()) {
        option_->setFocus();
        option_->click();
    }
}

void ProposalCard::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowTexts();
}

void ProposalCard::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    ShowTitle();
}

} // namespace quillshift::wizard
