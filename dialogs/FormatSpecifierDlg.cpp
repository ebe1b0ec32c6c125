#include "dialogs/FormatSpecifierDlg.h"

#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "output/results/NumberFormat.h"

namespace CommonUI
{

namespace
{

using EFormatSpecifier = CParameter::EFormatSpecifier;

constexpr struct {
    int control;
    int text;
} c_labels[] = {
    {CFormatSpecifierDlg::c_format, 8158},          {CFormatSpecifierDlg::c_count, 10263},
    {CFormatSpecifierDlg::c_exampleCaption, 10264}, {CBaseDialog::c_ok, 10261},
    {CBaseDialog::c_cancel, c_cancelText},
};

constexpr struct {
    int control;
    double value;
} c_examples[] = {
    {CFormatSpecifierDlg::c_largeExample, 3.141592653589793},
    {CFormatSpecifierDlg::c_smallExample, 3.141592653589793e-06},
};

} // namespace

CFormatSpecifierView::~CFormatSpecifierView() = default;

CFormatSpecifierDlg::CFormatSpecifierDlg(const CParameter& parameter)
    : CBaseDialog(c_identifier, nullptr)
    , m_parameter(parameter)
{
    for (const auto& format : GetFormatSpecifierEnum()) {
        const auto value = static_cast<EFormatSpecifier>(format.GetValue());
        if (value != EFormatSpecifier::FormatInteger)
            m_items.push_back({format.GetFriendlyString(), value});
    }
    m_count.SetWantsEnter(false); // they are the dialog's
    m_count.SetChangeNotification(*this, &CFormatSpecifierDlg::OnSizeEditChanged);
}

CFormatSpecifierDlg::~CFormatSpecifierDlg()
{
    EndDialog(c_cancel);
}

void CFormatSpecifierDlg::SetView(CFormatSpecifierView* view)
{
    Link(*this, view);
}

bool CFormatSpecifierDlg::OnInitDialog()
{
    m_original = m_parameter.GetFloatFormat();
    if (CFormatSpecifierView* const view = GetView()) {
        view->SetCaption(GetString(c_identifier));
        for (const auto& label : c_labels)
            view->SetText(label.control, GetString(label.text));
        FillList();
    }
    m_count.SetValidate(true);
    m_count.ShowSpinButton(c_count, true);
    // Reports the count, so that a count beyond the range becomes what the field shows.
    m_count.Setup(m_parameter.GetFloatFormat().count, c_leastCount, c_greatestCount, 1);
    return true;
}

void CFormatSpecifierDlg::FillList()
{
    std::optional<std::size_t> selected;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (m_items[i].value == m_parameter.GetFloatFormat().type)
            selected = i;
    GetView()->SetItems(m_items);
    GetView()->SelectItem(selected);
}

void CFormatSpecifierDlg::OnCbnSelchangeFormatCombo()
{
    const auto selected = GetView() ? GetView()->GetSelectedItem() : std::nullopt;
    if (selected && *selected < m_items.size())
        SetFormat({m_items[*selected].value, m_parameter.GetFloatFormat().count});
}

void CFormatSpecifierDlg::OnSizeEditChanged(int count)
{
    SetFormat({m_parameter.GetFloatFormat().type, count});
}

void CFormatSpecifierDlg::SetFormat(const CParameter::SFormatSpecifier& format)
{
    m_parameter.SetFloatFormat(format);
    UpdateExample();
}

void CFormatSpecifierDlg::UpdateExample()
{
    if (!GetView())
        return;
    for (const auto& example : c_examples)
        GetView()->SetText(example.control,
                           CStr::Format(u"%.12lf -> %s", example.value,
                                        FormatParameterValue(example.value, m_parameter.GetFloatFormat())));
}

void CFormatSpecifierDlg::OnOK()
{
    if (m_count.IsModified())
        m_count.Validate();
    CBaseDialog::OnOK();
}

void CFormatSpecifierDlg::OnDestroy()
{
    // The field loses the focus with the window, and would take what is typed in it.
    m_count.SetValidate(false);
    if (GetResult() != c_ok)
        m_parameter.SetFloatFormat(m_original);
}

} // namespace CommonUI
