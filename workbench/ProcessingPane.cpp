#include "workbench/ProcessingPane.h"

#include "measurement/process/StepSequence.h"
#include "measurement/Request.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "qt/controls/BoxDelegate.h"
#include "workbench/Texts.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Workbench
{

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

constexpr int c_idRole = Qt::UserRole;
constexpr const char16_t* c_sequenceFilter = u"Batch sequences (*.batch)|*.batch||";

void Tell(const CStr& text)
{
    GetMessageBoxService().Show({.text = text, .style = MessageBoxStyle::c_ok | MessageBoxStyle::c_warning});
}

QString WithoutMark(QString text)
{
    return text.remove(QLatin1Char('&'));
}

CStr TextOf(const SStepChange& change)
{
    const auto of = [&](EText text) { return CStr::Format(Text(text), change.title); };
    switch (change.kind) {
    case EStepChange::Remove:
        return of(EText::ChangeRemove);
    case EStepChange::Replace:
        return of(EText::ChangeReplace);
    case EStepChange::Move:
        return of(EText::ChangeMove);
    case EStepChange::SwitchOn:
        return of(EText::ChangeOn);
    case EStepChange::SwitchOff:
        return of(EText::ChangeOff);
    case EStepChange::Edit:
        return of(EText::ChangeEdit);
    default:
        return change.title;
    }
}

void Show(QAction& action, const SStepChange* change, EText text, EText textWithChange)
{
    action.setEnabled(change);
    action.setText(change
                       ? ToQString(CStr::Format(Text(textWithChange), TextOf(*change).Replace(u"&", u"&&")))
                       : QText(text));
    action.setToolTip(WithoutMark(action.text()));
}

} // namespace

CProcessingPane::CProcessingPane()
    : CDockPane(u"Workbench.Processing", Text(EText::Processing))
    , m_undo(new QAction(QText(EText::Undo), this))
    , m_redo(new QAction(QText(EText::Redo), this))
    , m_list(new QListWidget)
    , m_form(new CStepForm)
    , m_state(new QLabel)
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    auto* const sets = new QFormLayout;
    sets->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_corrections =
        AddSets(*sets, QText(EText::AddCorrection), ESettingType::PlaneCorr, m_correctionConnection);
    m_filters = AddSets(*sets, QText(EText::AddFilter), ESettingType::Filter, m_filterConnection);
    m_sequences = AddSets(*sets, QText(EText::AddSequence), ESettingType::Batch, m_sequenceConnection);
    layout->addLayout(sets);
    layout->addWidget(m_list, 1);
    layout->addWidget(MakeCommands());
    layout->addWidget(m_form);
    layout->addWidget(m_state);
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    setWidget(area);
    m_list->setAccessibleName(QText(EText::Steps));
    m_list->setItemDelegate(new CBoxDelegate(m_list));
    m_list->setWordWrap(true);
    m_list->setMinimumHeight(5 * fontMetrics().height());
    m_list->installEventFilter(this);
    m_state->setWordWrap(true);
    connect(m_list, &QListWidget::itemChanged, this, &CProcessingPane::OnItem);
    connect(m_list, &QListWidget::currentItemChanged, this, [this] {
        if (!m_isFilling)
            Fill();
    });
    connect(m_form, &CStepForm::NumberEdited, this, &CProcessingPane::Edit);
    connect(m_form, &CStepForm::SetChosen, this, &CProcessingPane::Replace);
    SetPage(nullptr);
}

CProcessingPane::~CProcessingPane() = default;

QAction* CProcessingPane::AddCommand(QToolBar& bar, const QString& text, const QIcon& icon,
                                     const QKeySequence& keys, const FCommand& command)
{
    QAction* const action = bar.addAction(icon, text);
    if (!keys.isEmpty())
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(WithoutMark(text), keys.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, command);
    return action;
}

QToolBar* CProcessingPane::MakeCommands()
{
    auto* const bar = new QToolBar;
    const auto icon = [this](QStyle::StandardPixmap pixmap) { return style()->standardIcon(pixmap); };
    m_up = AddCommand(*bar, QText(EText::MoveUp), icon(QStyle::SP_ArrowUp),
                      QKeySequence(Qt::CTRL | Qt::Key_Up), [this] { Move(-1); });
    m_down = AddCommand(*bar, QText(EText::MoveDown), icon(QStyle::SP_ArrowDown),
                        QKeySequence(Qt::CTRL | Qt::Key_Down), [this] { Move(1); });
    m_remove = AddCommand(*bar, QText(EText::Remove), icon(QStyle::SP_TrashIcon),
                          QKeySequence(Qt::Key_Delete), [this] { Remove(); });
    bar->addSeparator();
    m_undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_undo->setIcon(icon(QStyle::SP_ArrowBack));
    m_redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    m_redo->setIcon(icon(QStyle::SP_ArrowForward));
    connect(m_undo, &QAction::triggered, this, [this] { GetProcessing()->Undo(); });
    connect(m_redo, &QAction::triggered, this, [this] { GetProcessing()->Redo(); });
    bar->addAction(m_undo);
    bar->addAction(m_redo);
    bar->addSeparator();
    m_save = AddCommand(*bar, QText(EText::SaveSequence), icon(QStyle::SP_DialogSaveButton), {},
                        [this] { SaveSequence(); });
    return bar;
}

CSettingsButton* CProcessingPane::AddSets(QFormLayout& form, const QString& text, ESettingType type,
                                          CClosureConnection& connection)
{
    auto* const button = new CSettingsButton(type, nullptr, false);
    button->GetMenu().GetChosen().Subscribe(*this, &CProcessingPane::OnSet, connection);
    auto* const label = new QLabel(text);
    label->setBuddy(button);
    button->setAccessibleName(WithoutMark(text));
    button->setText(QStringLiteral("+"));
    form.addRow(label, button);
    return button;
}

void CProcessingPane::SetPage(CSurfacePage* page)
{
    if (page && page == m_page)
        return;
    m_changeConnection.Disconnect();
    m_page = page;
    if (page)
        page->GetProcessing().GetChanged().Subscribe(*this, &CProcessingPane::Fill, m_changeConnection);
    widget()->setEnabled(page);
    Fill();
}

CSurfaceProcessing* CProcessingPane::GetProcessing() const
{
    return m_page ? &m_page->GetProcessing() : nullptr;
}

// The button is there to add what is chosen, and has nothing itself. The menu must not change while it tells
// of the choice.
void CProcessingPane::OnSet(CSettings& settings)
{
    QMetaObject::invokeMethod(
        this,
        [this, set = settings]() mutable {
            for (CSettingsButton* const button : {m_corrections, m_filters, m_sequences}) {
                button->GetMenu().SetCurrent({});
                button->setText(QStringLiteral("+"));
            }
            if (!m_page)
                return;
            const bool isSequence = set.GetEntryInfo().m_Type == ESettingType::Batch;
            try {
                if (isSequence)
                    AddSequence(set);
                else
                    Add(set.GetEntryInfo());
            } catch (const ERequest& error) {
                Tell(CStr::FromUtf8(error.what()));
            }
        },
        Qt::QueuedConnection);
}

void CProcessingPane::Add(const SSettingsEntry& entry)
{
    const unsigned id =
        GetProcessing()->Add(LoadStep(GetSettingsFactory(), MakeBatchStep(entry)), GetChosen());
    for (int row = 0; row < m_list->count(); ++row)
        if (m_list->item(row)->data(c_idRole).toUInt() == id)
            m_list->setCurrentRow(row);
}

void CProcessingPane::AddSequence(CSettings& settings)
{
    const CStr name = settings.GetEntryInfo().m_Name;
    GetProcessing()->Take(LoadSequence(GetSettingsFactory(), settings, name), name);
}

void CProcessingPane::Replace(const SSettingsEntry& entry)
{
    try {
        if (m_page)
            GetProcessing()->Replace(GetChosen(), LoadStep(GetSettingsFactory(), MakeBatchStep(entry)));
    } catch (const ERequest& error) {
        Tell(CStr::FromUtf8(error.what()));
    }
}

void CProcessingPane::Edit(EStepNumber number, double value)
{
    const bool isDone = m_page && GetProcessing()->Edit(GetChosen(), number, value);
    // What the field shows may be none of the values that there are.
    QMetaObject::invokeMethod(
        this,
        [this, isDone] {
            Fill();
            if (!isDone)
                m_state->setText(QText(EText::NotThisValue));
        },
        Qt::QueuedConnection);
}

void CProcessingPane::Move(int by)
{
    if (m_page)
        GetProcessing()->Move(GetChosen(), by);
}

void CProcessingPane::Remove()
{
    if (m_page && GetChosen() != 0)
        GetProcessing()->Remove(GetChosen());
}

void CProcessingPane::SaveSequence()
{
    CStr path;
    if (!m_page || !GetFileDialogService().Choose({.forOpen = false,
                                                   .filter = c_sequenceFilter,
                                                   .extension = u"batch",
                                                   .memoryKey = u"Settings_Batch"},
                                                  path))
        return;
    try {
        Measurement::SaveSequence(GetProcessing()->GetSteps(), path);
    } catch (const ERequest& error) {
        Tell(CStr::FromUtf8(error.what()));
    }
}

void CProcessingPane::OnItem(QListWidgetItem* item)
{
    if (!m_isFilling && m_page)
        GetProcessing()->Switch(item->data(c_idRole).toUInt(), item->checkState() == Qt::Checked);
}

unsigned CProcessingPane::GetChosen() const
{
    const QListWidgetItem* const item = m_list->currentItem();
    return item ? item->data(c_idRole).toUInt() : 0;
}

QString CProcessingPane::GetState() const
{
    return m_state->text();
}

// Rows stay what they are as far as possible: screen readers and the keyboard are on one of them.
void CProcessingPane::FillRows()
{
    CSurfaceProcessing* const processing = GetProcessing();
    const CProcessSteps none;
    const CProcessSteps& steps = processing ? processing->GetSteps() : none;
    const unsigned chosen = GetChosen();
    const int place = m_list->currentRow();
    const auto count = static_cast<int>(steps.size());
    while (m_list->count() > count)
        delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < count)
        m_list->addItem(new QListWidgetItem);
    int current = std::min(place, count - 1);
    for (int row = 0; row < count; ++row) {
        const SProcessStep& step = steps[static_cast<std::size_t>(row)];
        const CStr refusal = processing->GetRefusal(step.id);
        QListWidgetItem& item = *m_list->item(row);
        item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item.setData(c_idRole, step.id);
        item.setCheckState(step.isOn ? Qt::Checked : Qt::Unchecked);
        item.setText(ToQString(step.GetTitle()) +
                     (refusal.IsEmpty()
                          ? QString()
                          : QLatin1Char('\n') + ToQString(CStr::Format(Text(EText::LeftOut), refusal))));
        item.setIcon(refusal.IsEmpty() ? QIcon() : style()->standardIcon(QStyle::SP_MessageBoxWarning));
        item.setToolTip(ToQString(step.Describe()));
        if (step.id == chosen)
            current = row;
    }
    m_list->setCurrentRow(current);
}

void CProcessingPane::Fill()
{
    m_isFilling = true;
    FillRows();
    m_isFilling = false;
    const int row = m_list->currentRow();
    CSurfaceProcessing* const processing = GetProcessing();
    m_form->SetStep(processing ? processing->GetHistory().Find(GetChosen()) : nullptr);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->count());
    m_remove->setEnabled(row >= 0);
    m_save->setEnabled(processing && std::ranges::any_of(processing->GetSteps(), &SProcessStep::isOn));
    const CStepHistory* const history = processing ? &processing->GetHistory() : nullptr;
    Show(*m_undo, history ? history->GetUndo() : nullptr, EText::Undo, EText::UndoWhat);
    Show(*m_redo, history ? history->GetRedo() : nullptr, EText::Redo, EText::RedoWhat);
    ShowState();
}

void CProcessingPane::ShowState()
{
    const CSurfaceProcessing* const processing = GetProcessing();
    if (!processing)
        m_state->setText(QText(EText::NoSurface));
    else if (!processing->GetFailure().IsEmpty())
        m_state->setText(ToQString(CStr::Format(Text(EText::NoResults), processing->GetFailure())));
    else if (processing->IsBusy())
        m_state->setText(QText(EText::Computing));
    else
        m_state->setText(m_list->count() == 0 ? QText(EText::NoSteps) : QString());
}

bool CProcessingPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_list || event->type() != QEvent::KeyPress)
        return CDockPane::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isMove = key.modifiers() == Qt::ControlModifier;
    if (isMove && (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down))
        Move(key.key() == Qt::Key_Up ? -1 : 1);
    else if (key.key() == Qt::Key_Delete)
        Remove();
    else
        return CDockPane::eventFilter(watched, event);
    return true;
}

} // namespace Workbench
