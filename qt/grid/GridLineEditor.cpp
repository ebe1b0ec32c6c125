#include "qt/grid/detail/GridLineEditor.h"

#include "common/StringTable.h"
#include "qt/detail/StepTexts.h"
#include "qt/QtText.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QValidator>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

// Lets only valid characters in. Blanks are the places of a mask that nothing has been typed at.
class CCharacterValidator final : public QValidator
{
public:
    CCharacterValidator(QString characters, QObject* parent)
        : QValidator(parent)
        , m_characters(std::move(characters))
    {
    }

    State validate(QString& input, int& /*position*/) const override
    {
        const auto isValid = [this](QChar unit) { return unit == u' ' || m_characters.contains(unit); };
        return std::all_of(input.begin(), input.end(), isValid) ? Acceptable : Invalid;
    }

private:
    QString m_characters;
};

// The mask as Qt writes it.
QString ToInputMask(const CStr& mask)
{
    QString qtMask;
    for (const char16_t unit : mask) {
        switch (unit) {
        case u'd':
            qtMask += u'9';
            break;
        case u'a':
            qtMask += u'A';
            break;
        case u'*':
            qtMask += u'X';
            break;
        default:
            qtMask += u'\\';
            qtMask += QChar(unit);
        }
    }
    return qtMask;
}

} // namespace

CGridLineEditor::CGridLineEditor(const SGridEdit& edit, QWidget& parent, FDone done)
    : CGridEditor(std::move(done))
    , m_edit(edit)
    , m_line(new QLineEdit(&parent))
{
    m_line->setFrame(false);
    SetRules();
    m_line->setText(ToQString(edit.text));
    m_line->selectAll();
    if (!edit.typed.IsEmpty())
        m_line->insert(ToQString(edit.typed));
    if (edit.kind == SGridEdit::EKind::Spin)
        AddArrows();
    Watch();
}

void CGridLineEditor::SetRules()
{
    const SGridEditRules& rules = m_edit.rules;
    if (!rules.mask.IsEmpty())
        m_line->setInputMask(ToInputMask(rules.mask));
    if (!rules.validCharacters.IsEmpty())
        m_line->setValidator(new CCharacterValidator(ToQString(rules.validCharacters), m_line));
}

CStr CGridLineEditor::GetText() const
{
    return FromQString(m_line->text());
}

void CGridLineEditor::AddArrows()
{
    m_line->setAlignment(Qt::AlignRight);
    for (const bool up : {true, false}) {
        auto* const arrow = new QToolButton(m_line);
        arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
        arrow->setAutoRepeat(true);
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setCursor(Qt::ArrowCursor);
        arrow->setAccessibleName(ToQString(GetString(up ? c_increase : c_decrease)));
        connect(arrow, &QToolButton::clicked, this, [this, up] { Step(up ? 1 : -1); });
        m_arrows[up ? 0 : 1] = arrow;
    }
}

void CGridLineEditor::PlaceArrows()
{
    if (!m_arrows[0])
        return;
    // Side by side, as one above the other they would be half as high. They lie where the cell has its own.
    const int width = m_line->height() + 2;
    m_arrows[0]->setGeometry(m_line->width() - width, 0, width, m_line->height());
    m_arrows[1]->setGeometry(m_line->width() - 2 * width, 0, width, m_line->height());
    m_line->setTextMargins(0, 0, 2 * width, 0);
}

void CGridLineEditor::Step(int steps)
{
    m_line->setText(ToQString(StepGridEdit(m_edit, GetText(), steps)));
    m_line->selectAll();
}

bool CGridLineEditor::OnKey(const QKeyEvent& event)
{
    const bool up = event.key() == Qt::Key_Up;
    if (m_arrows[0] && (up || event.key() == Qt::Key_Down)) {
        Step(up ? 1 : -1);
        return true;
    }
    return CGridEditor::OnKey(event);
}

bool CGridLineEditor::OnWheel(QEvent& event)
{
    const auto& wheel = static_cast<QWheelEvent&>(event);
    if (!m_arrows[0])
        return false;
    const bool control = wheel.modifiers().testFlag(Qt::ControlModifier);
    const std::optional<int> steps = m_wheel.Turn(wheel.angleDelta().y(), control);
    if (!steps)
        return false;
    if (*steps != 0)
        Step(*steps);
    event.accept();
    return true;
}

bool CGridLineEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        PlaceArrows();
    else if (event->type() == QEvent::Wheel && OnWheel(*event))
        return true;
    return CGridEditor::eventFilter(watched, event);
}

} // namespace CommonUI
