#include "qt/selection/detail/OptionForm.h"

#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

using EKind = SDialogOption::EKind;

// A list that takes the wheel only while it has the focus.
class CList final : public QComboBox
{
public:
    CList()
    {
        setFocusPolicy(Qt::StrongFocus);
        // Long names shall not make the dialog wider than what else is in it.
        setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(34);
    }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

QStringList TextsOf(const std::vector<CStr>& texts)
{
    QStringList list;
    for (const CStr& text : texts)
        list += ToQString(text);
    return list;
}

} // namespace

COptionForm::COptionForm(FChoice choice, FText text)
    : m_choice(std::move(choice))
    , m_text(std::move(text))
    , m_layout(new QFormLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

bool COptionForm::IsSameForm(const std::vector<SDialogOption>& options) const
{
    return std::ranges::equal(m_lines, options, [](const SLine& line, const SDialogOption& option) {
        return line.option.id == option.id && line.option.kind == option.kind &&
               line.option.choices == option.choices;
    });
}

void COptionForm::Show(const std::vector<SDialogOption>& options, const CMnemonics& mnemonics)
{
    if (!IsSameForm(options))
        Make(options);
    const bool isLabelled =
        std::ranges::equal(m_lines, options, [](const SLine& line, const SDialogOption& o) {
            return line.isLabelled && line.option.label == o.label;
        });
    for (std::size_t i = 0; i < options.size(); ++i) {
        m_lines[i].option = options[i];
        Update(m_lines[i]);
    }
    if (!isLabelled)
        Label(mnemonics);
}

void COptionForm::Label(CMnemonics mnemonics)
{
    for (SLine& line : m_lines) {
        const QString text = mnemonics.Mark(ToQString(line.option.label));
        if (line.label)
            line.label->setText(text + u':');
        else
            line.field->setProperty("text", text);
        line.isLabelled = true;
    }
}

void COptionForm::Make(const std::vector<SDialogOption>& options)
{
    const auto focused =
        std::ranges::find_if(m_lines, [](const SLine& line) { return line.field->hasFocus(); });
    const int focusedId = focused == m_lines.end() ? -1 : focused->option.id;
    // One of them may be the one that is telling of a choice.
    for (const SLine& line : m_lines)
        for (QWidget* const widget : {line.field, static_cast<QWidget*>(line.label)})
            if (widget) {
                widget->hide();
                widget->setParent(nullptr);
                widget->deleteLater();
            }
    m_lines.clear();
    while (m_layout->rowCount() > 0) {
        const QFormLayout::TakeRowResult row = m_layout->takeRow(0);
        delete row.labelItem;
        delete row.fieldItem;
    }
    m_lines.reserve(options.size());
    for (const SDialogOption& option : options) {
        SLine& line = m_lines.emplace_back(SLine{.option = option});
        line.field = MakeField(line);
        if (option.kind == EKind::Check) {
            m_layout->addRow(line.field);
        } else {
            line.label = new QLabel;
            line.label->setBuddy(line.field);
            m_layout->addRow(line.label, line.field);
            line.label->show();
        }
        line.field->show(); // the window of a modal dialog counts as shown before it is filled
    }
    FocusOption(focusedId);
}

QWidget* COptionForm::MakeField(SLine& line)
{
    const int id = line.option.id;
    if (line.option.kind == EKind::Check) {
        auto* const box = new QCheckBox;
        connect(box, &QCheckBox::clicked, this,
                [this, id](bool on) { Guarded([&] { m_choice(id, on ? 1 : 0); }); });
        return box;
    }
    if (line.option.kind == EKind::Choice) {
        auto* const list = new CList;
        list->addItems(TextsOf(line.option.choices));
        // Not only "activated": an item that is found by its letters is just the current one.
        connect(list, &QComboBox::currentIndexChanged, this,
                [this, id](int index) { Guarded([&] { m_choice(id, index); }); });
        return list;
    }
    auto* const edit = new QLineEdit;
    // A number is read from left to right in every language.
    edit->setLayoutDirection(Qt::LeftToRight);
    line.warning =
        edit->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    connect(edit, &QLineEdit::textEdited, this,
            [this, id](const QString& text) { Guarded([&] { m_text(id, FromQString(text)); }); });
    return edit;
}

void COptionForm::Update(SLine& line) const
{
    const SDialogOption& option = line.option;
    line.field->setEnabled(option.enabled);
    line.field->setToolTip(ToQString(option.remark));
    if (line.label)
        line.label->setEnabled(option.enabled);
    QFont font = this->font();
    font.setItalic(!option.remark.IsEmpty());
    QWidget* const named = line.label ? static_cast<QWidget*>(line.label) : line.field;
    named->setFont(font);
    if (auto* const box = qobject_cast<QCheckBox*>(line.field))
        box->setChecked(option.value != 0);
    if (auto* const list = qobject_cast<QComboBox*>(line.field)) {
        const QSignalBlocker blocker(list);
        list->setCurrentIndex(option.value);
    }
    if (auto* const edit = qobject_cast<QLineEdit*>(line.field)) {
        if (const QString text = ToQString(option.text); edit->text() != text)
            edit->setText(text);
        ShowFault(line);
    }
}

void COptionForm::ShowFault(SLine& line)
{
    const bool isFaulty = line.option.enabled && !line.option.fault.IsEmpty();
    line.warning->setVisible(isFaulty);
    const QString fault = ToQString(line.option.fault);
    line.field->setAccessibleDescription(isFaulty ? fault : ToQString(line.option.remark));
    if (isFaulty)
        line.field->setToolTip(fault);
}

std::vector<QWidget*> COptionForm::GetFields() const
{
    std::vector<QWidget*> fields;
    fields.reserve(m_lines.size());
    for (const SLine& line : m_lines)
        fields.push_back(line.field);
    return fields;
}

void COptionForm::FocusOption(int id)
{
    for (const SLine& line : m_lines)
        if (line.option.id == id) {
            line.field->setFocus(Qt::OtherFocusReason);
            if (auto* const edit = qobject_cast<QLineEdit*>(line.field))
                edit->selectAll();
        }
}

} // namespace CommonUI
