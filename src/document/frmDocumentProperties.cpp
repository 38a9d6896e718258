#include "document/frmDocumentProperties.h"

#include "platform/qt/FileIcons.h"
#include "platform/qt/QtTabStrip.h"
#include "platform/qt/QtText.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr int kIconSize = 32;
constexpr std::u16string_view kGeneral = u"Общие";

// The file's picture at the top left corner.
class FileImage final : public QWidget {
public:
    explicit FileImage(QIcon icon) : icon_(std::move(icon)) { setFixedSize(kIconSize, kIconSize); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        icon_.paint(&painter, 0, 0, kIconSize, kIconSize, Qt::AlignLeft | Qt::AlignTop);
    }

private:
    QIcon icon_;
};

// It shows, and takes neither a tick nor the keyboard, which goes on to another control.
class AttributeBox final : public QCheckBox {
public:
    AttributeBox(const QString& text, bool ticked, QWidget& next) : QCheckBox(text), next_(next) {
        setFocusPolicy(Qt::ClickFocus);
        setChecked(ticked);
        connect(this, &QCheckBox::toggled, this, [this, ticked] { setChecked(ticked); });
    }

protected:
    void focusInEvent(QFocusEvent* event) override { next_.setFocus(event->reason()); }

private:
    QWidget& next_;
};

QFrame* Line() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

frmDocumentProperties::frmDocumentProperties(const DialogContext& context)
    : Dialog(context, QStringLiteral("Свойства документа")),
      path_(context.platform.fileDialog.FileName),
      strip_(Add<QtTabStrip>("tabProperties")),
      tabProperties_(*strip_),
      picGeneral(Add<QWidget>("picGeneral")),
      cmdClose(AddButton("cmdClose", QStringLiteral("&Закрыть"))) {
    tabProperties_.TabClick = [this](int tab) { ShowTab(tab); };
    tabProperties_.AddTab(kGeneral, -1, -1, u"GENERAL");
    tabProperties_.SelectTab(1);
    ShowTab(1);
    setCursor(Qt::WaitCursor);
    FillIn();
    unsetCursor();

    auto* inside = new QVBoxLayout(strip_);
    inside->setContentsMargins({});
    inside->addWidget(picGeneral);
    auto* all = new QVBoxLayout(this);
    all->addWidget(strip_);
    all->addWidget(cmdClose, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    cmdClose->setDefault(true);
    cmdClose->setFocus();
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDocumentProperties::ShowTab(int tab) {
    if (tabProperties_.TabText(tab) == kGeneral)
        picGeneral->show();
}

void frmDocumentProperties::FillIn() {
    const DocumentProperties told = PropertiesOf(path_, Context().platform.files);
    const QIcon own(
        ToQString(Context().platform.shell.ProgramFolder() + u"/Data/icons/toolbars/large/New.ico"));
    auto* facts = new QFormLayout;
    facts->setContentsMargins(0, 0, 0, 0);
    auto* picFileImage = Add<FileImage>("picFileImage", told.hasFile ? IconOfFile(path_, own) : QIcon());
    AddFact(*facts, "lblName", QStringLiteral("Имя файла:"), told.name);
    AddFact(*facts, "txtLocation", QStringLiteral("Размещение:"), told.location);
    AddFact(*facts, "lblSize", QStringLiteral("Размер:"), told.size);
    facts->addRow(Line());
    AddFact(*facts, "lblDate0", QStringLiteral("Создан:"), told.dates[0]);
    AddFact(*facts, "lblDate1", QStringLiteral("Изменен:"), told.dates[1]);
    AddFact(*facts, "lblDate2", QStringLiteral("Открыт:"), told.dates[2]);

    auto* attributes = new QGroupBox(QStringLiteral("Атрибуты:"));
    auto* boxes = new QGridLayout(attributes);
    AddAttribute(*boxes, 1, QStringLiteral("Скрытый"), told.hidden);
    AddAttribute(*boxes, 2, QStringLiteral("Системный"), false);
    AddAttribute(*boxes, 3, QStringLiteral("Только чтение"), told.readOnly);
    AddAttribute(*boxes, 4, QStringLiteral("Архивный"), false);

    auto* page = new QGridLayout(picGeneral);
    page->addWidget(picFileImage, 0, 0, Qt::AlignTop);
    page->addLayout(facts, 0, 1);
    page->addWidget(attributes, 1, 0, 1, 2);
}

void frmDocumentProperties::AddFact(QFormLayout& facts, const char* name, const QString& label,
                                    const std::u16string& text) {
    auto* fact = Add<QLineEdit>(name, ToQString(text));
    fact->setReadOnly(true);
    fact->setFrame(false);
    QPalette plain = fact->palette();
    plain.setColor(QPalette::Base, Qt::transparent);
    fact->setPalette(plain);
    fact->setCursorPosition(0);
    fact->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    facts.addRow(label, fact);
}

void frmDocumentProperties::AddAttribute(QGridLayout& boxes, int number, const QString& label, bool ticked) {
    auto* box = Add<AttributeBox>(("chkAttrib" + std::to_string(number)).c_str(), label, ticked, *cmdClose);
    boxes.addWidget(box, (number - 1) / 2, (number - 1) % 2);
}

} // namespace quillshift
