#include "dialogs/FormatSpecifierDlg.h"

#include "controls/MemoryEditView.h"
#include "dialogs/MemoryFormatSpecifierView.h"
#include "tests/Script.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

using namespace CommonUI;

namespace
{

using CDlg = CFormatSpecifierDlg;

// The dialog with a window, which plays lines of a script.
class CStage
{
public:
    CStage() { MakeDialog({CParameter::EFormatSpecifier::FormatInteger, 3}); }
    void Act(const SCommand& command) { m_verbs.at(command.verb)(command); }
    std::string Tell()
    {
        const auto& [type, count] = m_dialog->GetParameter().GetFloatFormat();
        const auto selected = m_view.GetSelectedItem();
        CStr told = CStr::Format(u"%s %d/%d: ", m_dialog->IsOpen() ? u"open" : u"closed", type, count);
        told += CStr::Format(u"%s %s \"%s\" \"%s\"", selected ? m_view.GetItems()[*selected].text : u"none",
                             m_edit.GetText(), m_view.GetText(CDlg::c_largeExample),
                             m_view.GetText(CDlg::c_smallExample));
        if (const CStr before = std::exchange(m_labels, GetLabels()); before != m_labels)
            told += m_labels;
        return told.ToUtf8();
    }

private:
    void MakeDialog(const CParameter::SFormatSpecifier& format)
    {
        CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
        parameter.SetFloatFormat(format);
        m_dialog = std::make_unique<CDlg>(parameter);
        m_dialog->SetView(&m_view);
        m_dialog->GetCountEdit().SetView(&m_edit);
    }
    CStr GetLabels() const
    {
        CStr labels = CStr::Format(u" \"%s\" \"%s\" \"%s\"", m_view.GetCaption(),
                                   m_view.GetText(CDlg::c_format), m_view.GetText(CDlg::c_exampleCaption));
        for (const SFormatItem& item : m_view.GetItems())
            labels += CStr::Format(u" %s %d", item.text, item.value);
        return labels;
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"format",
         [this](CCommand c) {
             MakeDialog({c.Get<CParameter::EFormatSpecifier>(), c.Get(1)});
         }},
        {"create", [this](CCommand) { m_dialog->Create(); }},
        {"choose", [this](CCommand c) { m_view.Choose(c.Get<std::size_t>()); }},
        {"step", [this](CCommand c) { m_dialog->GetCountEdit().OnSpinDeltaPos(c.Get()); }},
        {"type", [this](CCommand c) { m_edit.SelectAll(), m_edit.Type(CStr::FromUtf8(c.text)); }},
        {"press", [this](CCommand c) { m_view.Press(c.text == "OK" ? CDlg::c_ok : CDlg::c_cancel); }},
    };
    CMemoryFormatSpecifierView m_view;
    CMemoryEditView m_edit;
    std::unique_ptr<CDlg> m_dialog;
    CStr m_labels;
};

} // namespace

TEST(FormatSpecifierDlg, EditsAFormatAsTheScriptSays)
{
    ExpectScriptOf<CStage>("format-dialog.txt");
}
