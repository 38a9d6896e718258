#include "settings/frmToolBarCustomize.h"

#include "platform/qt/QtText.h"

#include <QBuffer>
#include <QGridLayout>
#include <QImageReader>
#include <QListWidget>
#include <QScrollBar>

namespace quillshift {
namespace {

constexpr std::array kPages{DialogPage{u"Панели инструментов", u"TOOLBARS", 1000, "picToolbars"},
                            DialogPage{u"Параметры", u"OPTIONS", 2000, "picOptions"}};
constexpr std::array kBars{ItemBar::Standart, ItemBar::Decode};
constexpr int kRowsShown = 14;
constexpr int kIconSize = 16;

// All sizes of an icon file. An item without a picture takes as much room, so that the texts stand in line.
QIcon IconIn(const std::string& bytes) {
    QBuffer buffer;
    buffer.setData(bytes.data(), static_cast<int>(bytes.size()));
    QImageReader reader(&buffer);
    QIcon icon;
    do {
        if (const QImage image = reader.read(); !image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
    } while (reader.jumpToNextImage());
    if (!icon.isNull())
        return icon;
    QPixmap room(kIconSize, kIconSize);
    room.fill(Qt::transparent);
    return room;
}

} // namespace

frmToolBarCustomize::frmToolBarCustomize(const DialogContext& context, ToolBarItems& toolBars)
    : PagedDialog(context, QStringLiteral("Настройка панелей инструментов..."), "tabCustomToolbar", kPages),
      toolBars_(toolBars),
      form_(Context(), ToolBarFields()) {
    AddPage(MakeToolBarsPage());
    AddPage(form_.MakePage(SettingPage::ToolBars, {}));
    AddButtons(QStringLiteral("По умолчанию"), nullptr);
    form_.Load();
    connect(&form_, &SettingForm::Edited, this, [this] { NoteEdit(); });
    for (QListWidget* list : lists_) {
        list->setCurrentRow(0);
        connect(list, &QListWidget::itemChanged, this, [this] { NoteEdit(); });
    }
}

QWidget* frmToolBarCustomize::MakeToolBarsPage() {
    auto* page = new QWidget;
    auto* halves = new QHBoxLayout(page);
    lists_ = {MakeList("lstToolBarStandart", ItemBar::Standart),
              MakeList("lstToolBarDecode", ItemBar::Decode)};
    const std::array labels{QStringLiteral("Стандартная:"), QStringLiteral("Перекодирование:")};
    for (std::size_t i = 0; i < lists_.size(); ++i) {
        auto* half = new QVBoxLayout;
        half->addWidget(LabelFor(lists_[i], labels[i]));
        half->addWidget(lists_[i]);
        halves->addLayout(half);
    }
    return page;
}

QListWidget* frmToolBarCustomize::MakeList(const char* name, ItemBar bar) {
    const Platform& platform = Context().platform;
    auto* list = Add<QListWidget>(name);
    list->setFont(font());
    list->setIconSize({kIconSize, kIconSize});
    int number = 0;
    for (const ToolBarItem& item : toolBars_.Items(bar)) {
        const std::u16string file =
            platform.shell.ProgramFolder() + u"/Data/icons/toolbars/small/" + std::u16string(item.picture);
        auto* entry = new QListWidgetItem(
            IconIn(item.picture.empty() ? std::string() : platform.files.Read(file).bytes),
            ToQString(item.text), list);
        entry->setCheckState(Context().settings.IsItemShown(bar, number++) ? Qt::Checked : Qt::Unchecked);
    }
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFixedSize(list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() +
                           2 * list->frameWidth(),
                       kRowsShown * list->sizeHintForRow(0) + 2 * list->frameWidth());
    return list;
}

void frmToolBarCustomize::WriteFields() {
    for (const ItemBar bar : kBars) {
        const QListWidget& list = *lists_[static_cast<std::size_t>(bar)];
        for (int i = 0; i < list.count(); ++i)
            Context().settings.ShowItem(bar, i, list.item(i)->checkState() == Qt::Checked);
    }
    form_.ApplyChoices();
    toolBars_.FollowStore();
}

void frmToolBarCustomize::ApplyDefaults() {
    for (QListWidget* list : lists_) {
        for (int i = 0; i < list->count(); ++i)
            list->item(i)->setCheckState(Qt::Checked);
        list->setCurrentRow(0);
    }
    Apply();
}

} // namespace quillshift
