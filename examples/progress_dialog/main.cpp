#include <CommonUI/qt/dialogs/QtProgressDialog.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>

#include <chrono>
#include <thread>

using namespace CommonUI;

class CBatch
{
public:
    // False if the user has cancelled. Throws what the work throws.
    bool Run(QWidget* parent)
    {
        CQtProgressThreadDialog dialog(parent, u"Batch analysis", u"Reading the files");
        dialog.SetRange(c_count);
        dialog.SetWork(*this, &CBatch::Work);
        m_dialog = &dialog;
        dialog.DoModal(); // until the work is done
        return !dialog.IsCanceled();
    }

private:
    static constexpr int c_count = 250;

    void Work() // on a thread of its own
    {
        for (int i = 1; i <= c_count; ++i) {
            Evaluate(i);
            if (m_dialog->PostThreadProgress(1, CStr::Format(u"Surface %d of %d", i, c_count)) != 0)
                return; // the user has cancelled
        }
    }
    static void Evaluate(int) { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

    CProgressThreadDialog* m_dialog = nullptr;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CBatch batch;
    return batch.Run(nullptr) ? 0 : 1; // a program with windows passes the widget that the user works in
}
