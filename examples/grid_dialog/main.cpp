#include <CommonUI/output/grid/GridCheckItem.h>
#include <CommonUI/qt/grid/GridWidget.h>
#include <CommonUI/qt/grid/ResultGridWidget.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QDialog>
#include <QFormLayout>
#include <QToolBar>

using namespace CommonUI;

class CTableDialog : public QDialog
{
public:
    CTableDialog()
        : m_results(CGridBaseOutputCtrl::SCellInfo::Results)
    {
        auto* form = new QFormLayout(this);
        form->addRow("&Parameters:", &m_items);
        CGridCtrl& grid = m_items.GetGrid();
        grid.AddColumn({u"Parameter", 160});
        grid.AddColumn({u"Shown", 60});
        for (SQuantity& quantity : m_quantities) {
            CGridRow& row = grid.AddRow();
            row.Emplace<CGridItem>(quantity.name).SetFlag(CGridItem::ReadOnly);
            quantity.isShown = &row.Emplace<CGridCheckItem>(1, 0);
        }
        grid.FitColumns();
        grid.SetChangeCallback(*this, &CTableDialog::OnChange);

        form->addRow("&Results:", &m_results);
        auto* tools = new QToolBar;
        tools->addAction(&m_results.GetAction(CResultGridWidget::ECommand::CopyTransposed));
        form->addRow(tools);
        ShowResults();
    }

private:
    struct SQuantity {
        CStr name;
        CStr value;
        CGridCheckItem* isShown = nullptr; // in the grid of items
    };

    void OnChange(CGridItem&, int) { ShowResults(); }
    void ShowResults()
    {
        CGridBaseOutputCtrl& table = m_results.GetTable();
        table.Clear();
        CGridBaseOutputCtrl::SRow values{.name = u"1", .cells = {}};
        for (const SQuantity& quantity : m_quantities)
            if (quantity.isShown->GetCheck() == EGridCheck::Checked) {
                table.AddColumn({quantity.name, u"Height"});
                values.cells.push_back(quantity.value);
            }
        table.AddRow(values);
        m_results.Update(); // after rows or columns have changed
    }

    SQuantity m_quantities[2] = {{u"Ra", u"0.25"}, {u"Rz", u"1.62"}};
    CGridCtrlWidget m_items;
    CResultGridWidget m_results;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CTableDialog dialog;
    return dialog.exec() == QDialog::Accepted ? 0 : 1;
}
