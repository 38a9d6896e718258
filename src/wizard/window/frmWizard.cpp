#include "wizard/window/frmWizard.h"

#include "base/Utf8.h"
#include "controls/FittingArea.h"
#include "controls/ProgressBarWidget.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/FileKinds.h"
#include "platform/qt/QtFolderDialog.h"
#include "platform/qt/QtText.h"
#include "wizard/rescue/RescueWords.h"
#include "wizard/window/ProposalCard.h"
#include "wizard/window/RescueModel.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedLayout>
#include <QTreeView>
#include <QUrl>
#include <QVBoxLayout>

namespace quillshift::wizard {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks(60);
constexpr QSize kFirstSize(920, 660);
constexpr int kLeastList = 100;

std::string NativeName(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

// By their bytes, as names of old disks are no UTF-8.
std::vector<std::string> NativeNames(const QList<QUrl>& urls) {
    std::vector<std::string> names;
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            names.push_back(
                QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString());
    return names;
}

// Never as a move, after which the other program would delete what it gave.
void AcceptAsCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

// One that takes what room there is, however long its words are.
QLabel* Yielding(QLabel* label) {
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

// --- What it shows

frmWizard::frmWizard(const DialogContext& context, Rescue& rescue)
    : Dialog(context, QStringLiteral("Мастер перекодирования")),
      rescue_(rescue),
      model_(new RescueModel(rescue, this)),
      lstFiles(Add<QTreeView>("lstFiles")),
      lblHint(Add<QLabel>("lblHint", QStringLiteral("Перетащите сюда файлы и папки\n"
                                                    "или вставьте испорченный текст (Ctrl+V)."))),
      lblSource(Yielding(Add<QLabel>("lblSource"))),
      lblTarget(Yielding(Add<QLabel>("lblTarget"))),
      lblState(Yielding(Add<QLabel>("lblState"))),
      options_(new QButtonGroup(this)),
      cmbTarget(Add<QComboBox>("cmbTarget")),
      progressBar(Add<ProgressBarWidget>("progressBar")),
      cmdFiles(AddButton("cmdFiles", QStringLiteral("&Файлы..."))),
      cmdFolder(AddButton("cmdFolder", QStringLiteral("&Папка..."))),
      cmdPaste(AddButton("cmdPaste", QStringLiteral("&Вставить текст"))),
      cmdClear(AddButton("cmdClear", QStringLiteral("Очистить &список"))),
      cmdLikeIt(AddButton("cmdLikeIt", QStringLiteral("&Так же остальные сомнительные в папке"))),
      cmdCopy(AddButton("cmdCopy", QStringLiteral("&Копировать исправленное"))),
      cmdRepair(AddButton("cmdRepair", QStringLiteral("&Исправить все надёжные"))),
      cmdReturn(AddButton("cmdReturn", QStringLiteral("Вернуть как &было"))),
      cmdClose(AddButton("cmdClose", QStringLiteral("&Закрыть"))) {
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    SetWindowTopMost(*this, context.settings.Is(Setting::TopMost));
    setAcceptDrops(true);
    auto* const halves = new QSplitter;
    halves->setChildrenCollapsible(false);
    halves->addWidget(Files());
    halves->addWidget(Proposals());
    halves->setSizes({kFirstSize.width() / 2, kFirstSize.width() / 2});
    halves->setMinimumHeight(Larger(kLeastList));
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(Sources());
    rows->addWidget(halves, 1);
    rows->addWidget(Work());
    resize(QSize(Larger(kFirstSize.width()), Larger(kFirstSize.height())).boundedTo(RoomOnScreen(*this)));
    ConnectAll();
    ChooseTarget();
    ShowRow();
}

QWidget* frmWizard::Sources() {
    auto* const row = new QWidget;
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins({});
    for (DialogButton* button : {cmdFiles, cmdFolder, cmdPaste, cmdClear}) {
        button->setAutoDefault(false);
        line->addWidget(button);
    }
    line->addStretch();
    return row;
}

QWidget* frmWizard::Files() {
    lstFiles->setModel(model_);
    lstFiles->setAccessibleName(QStringLiteral("Файлы"));
    lstFiles->setRootIsDecorated(false);
    lstFiles->setUniformRowHeights(true);
    lstFiles->setAllColumnsShowFocus(true);
    lstFiles->setTextElideMode(Qt::ElideMiddle); // the end of a name tells more than its folder
    lstFiles->header()->setStretchLastSection(true);
    const int letter = fontMetrics().averageCharWidth();
    lstFiles->header()->resizeSection(0, 20 * letter);
    lstFiles->header()->resizeSection(1, 22 * letter);
    lblHint->setAlignment(Qt::AlignCenter);
    lblHint->setWordWrap(true);
    lblHint->setFrameShape(QFrame::StyledPanel);
    lblHint->setBackgroundRole(QPalette::Base);
    lblHint->setAutoFillBackground(true);
    auto* const files = new QWidget;
    filesOrHint_ = new QStackedLayout(files);
    filesOrHint_->addWidget(lblHint);
    filesOrHint_->addWidget(lstFiles);
    return files;
}

QWidget* frmWizard::Proposals() {
    auto* const cards = new QWidget;
    auto* const column = new QVBoxLayout(cards);
    column->setContentsMargins({});
    for (std::size_t i = 0; i < kCards; ++i) {
        cards_[i] = new ProposalCard(("proposal" + std::to_string(i + 1)).c_str());
        options_->addButton(&cards_[i]->Option(), static_cast<int>(i));
        column->addWidget(cards_[i]);
        connect(cards_[i], &ProposalCard::Chosen, this, [this, i] { Choose(i); });
    }
    column->addStretch();
    auto* const scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(cards);
    auto* const half = new QWidget;
    auto* const rows = new QVBoxLayout(half);
    rows->setContentsMargins({});
    rows->addWidget(lblSource);
    rows->addWidget(scroll, 1);
    rows->addWidget(cmdLikeIt, 0, Qt::AlignLeft);
    rows->addWidget(cmdCopy, 0, Qt::AlignLeft);
    for (DialogButton* button : {cmdLikeIt, cmdCopy})
        button->setAutoDefault(false);
    return half;
}

QWidget* frmWizard::Work() {
    cmbTarget->addItem(QStringLiteral("UTF-8"), static_cast<int>(Target::Utf8));
    cmbTarget->addItem(QStringLiteral("Windows-1251"), static_cast<int>(Target::Windows1251));
    progressBar->setAccessibleName(QStringLiteral("Выполнено"));
    progressBar->Change([](qsProgressBar& bar) {
        bar.Segments = true;
        bar.BarColor = SystemColour::Highlight;
    });
    auto* const work = new QWidget;
    auto* const rows = new QVBoxLayout(work);
    rows->setContentsMargins({});
    auto* const target = new QHBoxLayout;
    target->addWidget(LabelFor(cmbTarget, QStringLiteral("Записывать файлы в &набор:")));
    target->addWidget(cmbTarget);
    target->addStretch();
    rows->addLayout(target);
    rows->addWidget(lblTarget);
    auto* const state = new QHBoxLayout;
    state->addStrut(progressBar->sizeHint().height()); // nothing moves when it comes and goes
    state->addWidget(lblState, 1);
    state->addWidget(progressBar);
    rows->addLayout(state);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    for (DialogButton* button : {cmdRepair, cmdReturn, cmdClose})
        buttons->addWidget(button);
    rows->addLayout(buttons);
    cmdRepair->setDefault(true);
    return work;
}

// --- What it reacts to

void frmWizard::ConnectAll() {
    connect(cmdFiles, &QPushButton::clicked, this, &frmWizard::AddFiles);
    connect(cmdFolder, &QPushButton::clicked, this, &frmWizard::AddFolder);
    connect(cmdPaste, &QPushButton::clicked, this, &frmWizard::Paste);
    connect(cmdClear, &QPushButton::clicked, this, &frmWizard::Clear);
    connect(cmdLikeIt, &QPushButton::clicked, this, &frmWizard::ChooseForLikeIt);
    connect(cmdCopy, &QPushButton::clicked, this, &frmWizard::Copy);
    connect(cmdRepair, &QPushButton::clicked, this, &frmWizard::RepairAll);
    connect(cmdReturn, &QPushButton::clicked, this, &frmWizard::ReturnAll);
    connect(cmdClose, &QPushButton::clicked, this, &frmWizard::StopOrClose);
    connect(cmbTarget, &QComboBox::currentIndexChanged, this, &frmWizard::ChooseTarget);
    connect(lstFiles->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmWizard::ShowRow);
    connect(new QShortcut(QKeySequence::Paste, this), &QShortcut::activated, this, &frmWizard::Paste);
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this, &frmWizard::AddFiles);
    watch_.callOnTimeout(this, &frmWizard::FollowWork);
}

void frmWizard::List(const std::vector<std::string>& names) {
    if (names.empty())
        return;
    rescue_.Add(names);
    Watch();
}

void frmWizard::AddFiles() {
    FileKinds kinds; // a thread of the dialog asks it to the end
    QFileDialog dialog(this, QStringLiteral("Файлы для исправления"));
    dialog.setIconProvider(&kinds);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() != QDialog::Accepted)
        return;
    std::vector<std::string> names;
    for (const QString& path : dialog.selectedFiles())
        names.push_back(NativeName(path));
    List(names);
}

void frmWizard::AddFolder() {
    QtFolderDialog dialog;
    dialog.DialogTitle = u"Папка для исправления";
    dialog.flags = FolderDialog::kListFiles;
    if (dialog.ShowFolder({}))
        List({NativeName(ToQString(dialog.InitDir))});
}

void frmWizard::Paste() {
    if (auto text = Context().platform.clipboard.Text())
        TakeText(std::move(*text));
}

void frmWizard::TakeText(std::u16string text) {
    if (!rescue_.AddText(std::move(text))) {
        Context().platform.messageBox.Inform(u"В буфере обмена нет текста.");
        return;
    }
    WatchText();
}

void frmWizard::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() || event->mimeData()->hasText())
        AcceptAsCopy(*event);
}

void frmWizard::dragMoveEvent(QDragMoveEvent* event) {
    AcceptAsCopy(*event);
}

void frmWizard::dropEvent(QDropEvent* event) {
    AcceptAsCopy(*event);
    const std::vector<std::string> names = NativeNames(event->mimeData()->urls());
    if (!names.empty())
        List(names);
    else if (event->mimeData()->hasText())
        TakeText(FromQString(event->mimeData()->text()));
}

// Escape stops what is being done before it closes anything.
void frmWizard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        StopOrClose();
    else
        Dialog::keyPressEvent(event);
}

void frmWizard::closeEvent(QCloseEvent* event) {
    rescue_.Stop();
    Dialog::closeEvent(event);
}

void frmWizard::ChooseTarget() {
    const auto target = static_cast<Target>(cmbTarget->currentData().toInt());
    rescue_.WriteIn(target);
    lblTarget->setText(target == Target::Utf8
                           ? QStringLiteral("Редактор читает простые файлы как Windows-1251: для него "
                                            "выберите этот набор.")
                           : QStringLiteral("Файл со знаками, которых в Windows-1251 нет, останется как "
                                            "есть."));
    model_->Follow({.ended = false, .first = 0, .last = rescue_.Rows().size()});
    ShowWork();
}

void frmWizard::Choose(std::size_t card) {
    if (const auto row = Current(); row && card < proposals_.size())
        rescue_.Choose(*row, proposals_[card].chain);
    FollowWork();
}

void frmWizard::ChooseForLikeIt() {
    if (const auto row = Current())
        rescue_.ChooseForLikeIt(*row);
    FollowWork();
}

void frmWizard::Copy() {
    if (const auto row = Current())
        rescue_.CopyText(*row);
    WatchText();
}

void frmWizard::RepairAll() {
    rescue_.RepairAll();
    WatchText();
}

void frmWizard::ReturnAll() {
    const BoxAnswer answer =
        Context().platform.messageBox.Ask(u"Вернуть файлы, исправленные в последний раз, в прежний вид?");
    if (answer != BoxAnswer::Yes)
        return;
    rescue_.ReturnAll();
    Watch();
}

void frmWizard::Clear() {
    rescue_.Clear();
    model_->Reset();
    ShowRow();
    ShowWork();
}

void frmWizard::StopOrClose() {
    if (rescue_.WhatIsDone() == Doing::Nothing)
        close();
    else
        rescue_.Stop();
}

// --- What is done

void frmWizard::Watch() {
    FollowWork();
    if (rescue_.WhatIsDone() != Doing::Nothing)
        watch_.start(kBetweenLooks);
}

// A text of usual length is there before the next key, which may be the one that repairs it.
void frmWizard::WatchText() {
    rescue_.Linger();
    Watch();
}

void frmWizard::FollowWork() {
    const Rescue::News news = rescue_.Poll();
    model_->Follow(news);
    if (rescue_.WhatIsDone() == Doing::Nothing)
        watch_.stop();
    const auto row = Current();
    ShowWork();
    if (news.text || (!row && model_->rowCount() > 0)) {
        lstFiles->setCurrentIndex(model_->index(static_cast<int>(news.text.value_or(0)), 0));
        lstFiles->setFocus();
    }
    if (row && *row >= news.first && *row < news.last) {
        ShowRow();
    }
    if (news.noReport)
        Context().platform.messageBox.Warn(FromUtf8(rescue_.Summary()));
}

std::optional<std::size_t> frmWizard::Current() const {
    const QModelIndex index = lstFiles->currentIndex();
    return index.isValid() ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt;
}

void frmWizard::ShowRow() {
    const auto number = Current();
    const RescueRow* const row = number ? &rescue_.Rows()[*number] : nullptr;
    proposals_ = row != nullptr ? ProposalsOf(row->finding, row->Way()) : std::vector<Proposal>();
    for (std::size_t i = 0; i < kCards; ++i) {
        const bool isShown = row != nullptr && i < proposals_.size();
        cards_[i]->setVisible(isShown);
        if (!isShown)
            continue;
        cards_[i]->Show(proposals_[i]);
        cards_[i]->Option().setChecked(proposals_[i].chain == row->Way());
        cards_[i]->Option().setEnabled(row->outcome != Outcome::Repaired);
    }
    const bool isText = row != nullptr && row->text;
    QString source;
    if (row != nullptr)
        source = model_->data(model_->index(static_cast<int>(*number), 0), Qt::ToolTipRole).toString();
    if (row != nullptr)
        source += u'\n' + QString::fromStdString(NoteOn(*row, !proposals_.empty()));
    lblSource->setText(source.trimmed());
    cmdCopy->setVisible(isText);
    cmdLikeIt->setVisible(row != nullptr && !isText && !proposals_.empty());
    cmdLikeIt->setEnabled(number && rescue_.HasLikeIt(*number));
}

// The keyboard of a button that goes grey would come to the next one, and that closes the window.
void frmWizard::Enable(DialogButton& button, bool enabled) {
    if (!enabled && focusWidget() == &button) // also behind a box
        (rescue_.Rows().empty() ? static_cast<QWidget*>(cmdFiles) : lstFiles)->setFocus();
    button.setEnabled(enabled);
}

void frmWizard::ShowWork() {
    const Doing doing = rescue_.WhatIsDone();
    const bool isIdle = doing == Doing::Nothing;
    filesOrHint_->setCurrentIndex(rescue_.Rows().empty() ? 0 : 1);
    lblState->setText(QString::fromStdString(StateOf(rescue_)));
    progressBar->setVisible(!isIdle);
    progressBar->Change([this](qsProgressBar& bar) {
        bar.Max = static_cast<std::int32_t>(std::max<std::size_t>(rescue_.Total(), 1));
        bar.Value = static_cast<std::int32_t>(rescue_.Done());
    });
    Enable(*cmdRepair, isIdle && rescue_.Repairable() > 0);
    Enable(*cmdReturn, isIdle && rescue_.CanReturn());
    Enable(*cmdClear, isIdle && !rescue_.Rows().empty());
    cmbTarget->setEnabled(doing != Doing::Repairing);
    cmdClose->setText(isIdle ? QStringLiteral("&Закрыть") : QStringLiteral("&Остановить"));
}

} // namespace quillshift::wizard
