#include "settings/frmAbout.h"

#include "controls/HyperLink.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/QtText.h"
#include "settings/Author.h"
#include "settings/DialogPicture.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr int kTextWidth = 340;
constexpr QRgb kDarkRed = qRgb(136, 0, 0);
constexpr QRgb kLightRed = qRgb(255, 150, 150); // as far from a dark ground as the other from a light one

QString Version() {
    return QStringLiteral("Version %1.%2.0 Preview build %3 for Microsoft Windows.")
        .arg(QUILLSHIFT_MAJOR)
        .arg(QUILLSHIFT_MINOR)
        .arg(QUILLSHIFT_REVISION);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

frmAbout::frmAbout(const DialogContext& context) : Dialog(context, QStringLiteral("О программе")) {
    auto* title = Add<QLabel>("lblTitle", QStringLiteral("Morvane Quillshift"));
    QFont large = font();
    large.setPointSizeF(16 * TextScale());
    large.setBold(true);
    title->setFont(large);
    auto* version = Add<QLabel>("lblVersion", Version());
    auto* copyright = Add<QLabel>("lblCopyright", QStringLiteral("© 2026 Morvane Tolric. Лицензия MIT."));
    auto* note = Add<QLabel>(
        "lblSupport",
        QStringLiteral("Программа бесплатна. Её развитие можно поддержать добровольно: письмом об "
                       "ошибке, образцом испорченного текста, переводом или деньгами. Как это "
                       "сделать, рассказано на домашней странице."));
    note->setWordWrap(true);
    note->setFixedWidth(Larger(kTextWidth));

    auto* links = new QGridLayout;
    links->setColumnStretch(1, 1);
    AddLink(*links, "Hyperlink1", QStringLiteral("Вопросы и комментарии:"), kAuthorMail,
            u"mailto:" + std::u16string(kAuthorMail));
    AddLink(*links, "Hyperlink2", QStringLiteral("Обновления программы:"), kHomePage, kHomePage);

    auto* cmdOK = Add<QPushButton>("cmdOK", QStringLiteral("Ok")); // it has no sounds
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    QWidget* picture = DialogPicture(context.platform, u"About");
    picture->setObjectName(QStringLiteral("ImageAbout"));
    auto* texts = new QVBoxLayout;
    for (QLabel* label : {title, version, copyright})
        texts->addWidget(label);
    texts->addLayout(links);
    texts->addWidget(note);
    auto* all = new QGridLayout(this);
    all->addWidget(picture, 0, 0, Qt::AlignTop);
    all->addLayout(texts, 0, 1);
    all->addWidget(cmdOK, 1, 1, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    cmdOK->setFocus();
}

void frmAbout::AddLink(QGridLayout& rows, const char* name, const QString& label, std::u16string_view caption,
                       std::u16string_view address) {
    auto* link = Add<HyperLink>(name, Context().platform);
    QFont tahoma(QStringLiteral("Tahoma"));
    tahoma.setPointSizeF(8.25 * TextScale());
    link->setFont(tahoma);
    link->SetCaption(caption);
    link->SetAddress(address);
    link->SetHoverColor(palette().color(QPalette::Highlight));
    link->SetForeColor(IsDark(palette()) ? kLightRed : kDarkRed);
    link->SetAutoToolTip(false);
    const int row = rows.rowCount();
    rows.addWidget(new QLabel(label), row, 0);
    rows.addWidget(link, row, 1, Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace quillshift
