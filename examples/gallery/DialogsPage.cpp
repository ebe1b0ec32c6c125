#include "dialogs/messages/RememberedMessageBox.h"
#include "dialogs/placement/PlacementManager.h"
#include "examples/gallery/ButtonPage.h"
#include "examples/gallery/Pages.h"
#include "qt/framework/DockPane.h"
#include "qt/framework/EventTrace.h"
#include "qt/framework/FormView.h"
#include "qt/framework/SelectionListWindow.h"
#include "qt/framework/SizerLayout.h"
#include "qt/framework/TextEditorWindow.h"
#include "qt/framework/WindowPlacer.h"
#include "qt/QtText.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPlainTextEdit>

#include <memory>

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr const char16_t* c_text = u"Ground steel, 0.4 mm \u00D7 0.4 mm\n"
                                   u"Levelled by a plane, then filtered:\n"
                                   u"  S-filter 2.5 \u00B5m\n"
                                   u"  L-filter 0.8 mm\n"
                                   u"Sa and Sq are those of the filtered surface.\n";

std::vector<CStr> MakeEntries(int count)
{
    constexpr const char16_t* c_names[] = {u"Sa", u"Sq", u"Sz", u"Ssk", u"Sku", u"Sdr", u"Ra", u"Rq", u"Rz"};
    std::vector<CStr> entries;
    entries.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        entries.push_back(CStr::Format(u"%s of surface %d", c_names[i % 9], i / 9 + 1));
    return entries;
}

// A form whose controls go with the window by rules.
QWidget* MakeForm()
{
    using namespace SizerRules;
    auto* const form = new QWidget;
    auto* const layout = new CSizerLayout(*form, {220, 110});
    auto* const label = new QLabel(QStringLiteral("&Sample:"));
    auto* const name = new QLineEdit(QStringLiteral("Ground steel"));
    label->setBuddy(name);
    layout->Add(*label, {7, 9, 60, 19}, c_stay);
    layout->Add(*name, {65, 7, 213, 21}, c_growWidth);
    auto* const left = new QListWidget;
    auto* const right = new QListWidget;
    left->setAccessibleName(QStringLiteral("Heights"));
    right->setAccessibleName(QStringLiteral("Slopes"));
    left->addItems({QStringLiteral("Sa"), QStringLiteral("Sq"), QStringLiteral("Sz")});
    right->addItems({QStringLiteral("Sdq"), QStringLiteral("Sdr")});
    layout->Add(*left, {7, 28, 107, 82}, {0, 0, 50, 100}, {50, 30});
    layout->Add(*right, {113, 28, 213, 82}, {50, 0, 100, 100}, {50, 30});
    layout->Add(*new QPushButton(QStringLiteral("&Reset")), {7, 89, 57, 103}, c_moveDown);
    layout->Add(*new QPushButton(QStringLiteral("&Apply")), {163, 89, 213, 103}, c_moveCorner);
    return form;
}

class CDialogsPage : public CButtonPage
{
public:
    explicit CDialogsPage(FLog log)
        : m_log(std::move(log))
    {
        Add("Choose &one of 100 000 entries", [this] { Choose(CSelectionListDlg::EMode::Single); });
        Add("Choose &several entries", [this] { Choose(CSelectionListDlg::EMode::Several); });
        Add("&Edit a text", [this] { Edit(); });
        Add("&Read a text", [this] { Read(); });
        Add("&Ask what need not be asked again", [this] { Ask(); });
        Add("Ask &everything again", [] { GetPreferencesManager().GetData().ResetDontShowAgain(); });
        Add("Show a &form and a pane", [this] { ShowDesk(); });
        Add("Forget all &placements", [] { GetPlacementManager().Clear(); });
        Add("&Trace events, or no more", [this] { Trace(); });
    }

    // Opens dialogs for the picture.
    void Open()
    {
        m_list = std::make_unique<CQtSelectionListDlg>(
            this, CSelectionListDlg::EMode::Several, u"Choose Parameters", u"&Parameters:", MakeEntries(999));
        m_list->SetChosen({2, 8, 11});
        m_list->Create();
        m_list->GetWindow()->GetFilterField().setText(QStringLiteral("z surface 1"));
        m_editor = std::make_unique<CQtTextEditorDlg>(this, CTextEditorDlg::EMode::Edit, u"Remarks", c_text);
        m_editor->Create();
        m_editor->GetWindow()->GetFindField().setText(QStringLiteral("filter"));
        m_editor->OnFind(u"filter", {});
        const int line = fontMetrics().lineSpacing();
        m_list->GetWindow()->resize(18 * line, 22 * line);
        m_editor->GetWindow()->resize(36 * line, 16 * line);
        m_list->GetWindow()->move(mapToGlobal(QPoint(24 * line, 2 * line)));
        m_editor->GetWindow()->move(mapToGlobal(QPoint(2 * line, 22 * line)));
    }

private:
    void Log(const CStr& text) const { m_log(ToQString(text)); }
    void Choose(CSelectionListDlg::EMode mode)
    {
        const bool isSingle = mode == CSelectionListDlg::EMode::Single;
        CQtSelectionListDlg dialog(this, mode, u"Choose Parameters", u"&Parameters:",
                                   MakeEntries(isSingle ? 100000 : 999));
        dialog.SetChosen(m_chosen);
        if (dialog.DoModal() != CBaseDialog::c_ok)
            return Log(u"List: cancelled");
        m_chosen = dialog.GetChosen();
        Log(CStr::Format(u"List: %zu chosen", m_chosen.size()));
    }
    void Edit()
    {
        CQtTextEditorDlg dialog(this, CTextEditorDlg::EMode::Edit, u"Remarks", m_text);
        const bool taken = dialog.DoModal() == CBaseDialog::c_ok;
        m_text = dialog.GetText();
        Log(taken ? CStr::Format(u"Editor: %zu code units", m_text.GetLength()) : CStr(u"Editor: cancelled"));
    }
    void Read() { CQtTextEditorDlg(this, CTextEditorDlg::EMode::ReadOnly, u"Remarks", m_text).DoModal(); }
    void Ask()
    {
        const SMessageBox box{u"Level the surface before it is filtered?",
                              MessageBoxStyle::c_yesNo | MessageBoxStyle::c_question};
        const bool isYes = ShowRememberedMessageBox(u"GalleryLevel", box) == EMessageBoxAnswer::Yes;
        Log(isYes ? u"Question: yes" : u"Question: no");
    }
    // To the standard error stream: the log below would be traced itself.
    void Trace()
    {
        m_trace = m_trace ? nullptr : std::make_unique<CEventTrace>();
        Log(m_trace ? u"Events are traced" : u"Events are traced no more");
    }
    void ShowDesk()
    {
        auto* const desk = new QMainWindow(this, Qt::Window);
        desk->setAttribute(Qt::WA_DeleteOnClose);
        desk->setWindowTitle(QStringLiteral("Form and pane"));
        desk->setCentralWidget(new CFormView(u"GalleryForm", MakeForm(), desk));
        auto* const pane = new CDockPane(u"GalleryPane", u"Remarks");
        auto* const text = new QPlainTextEdit(ToQString(m_text));
        text->setAccessibleName(QStringLiteral("Remarks"));
        pane->setWidget(text);
        new CWindowPlacer(*desk, u"GalleryDesk");
        desk->show();
        pane->AddTo(*desk, Qt::RightDockWidgetArea);
    }

    FLog m_log;
    CStr m_text = c_text;
    std::vector<std::size_t> m_chosen;
    std::unique_ptr<CEventTrace> m_trace;
    std::unique_ptr<CQtSelectionListDlg> m_list;
    std::unique_ptr<CQtTextEditorDlg> m_editor;
};

} // namespace

QWidget* MakeDialogsPage(const FLog& log)
{
    return new CDialogsPage(log);
}

void StageDialogsPage(QWidget& page)
{
    static_cast<CDialogsPage&>(page).Open();
}

} // namespace Gallery
