#include "examples/gallery/ButtonPage.h"
#include "examples/gallery/Pages.h"
#include "platform/Clipboard.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "qt/QtText.h"

namespace Gallery
{

namespace
{

using namespace CommonUI;

SMessageBox MakeQuestion()
{
    using namespace MessageBoxStyle;
    return {u"The file exists.\nReplace it?", c_yesNo | c_warning | c_help, 21000};
}

void ShowBox(const FLog& log, const SMessageBox& box)
{
    const int answer = static_cast<int>(GetMessageBoxService().Show(box));
    log(QStringLiteral("Message box: answer %1").arg(answer));
}

void ChooseFile(const FLog& log, bool forOpen)
{
    const SFileDialog dialog{.forOpen = forOpen,
                             .filter = u"Filter files (*.flt)|*.flt|All files (*.*)|*.*||",
                             .extension = u"flt",
                             .memoryKey = u"Gallery"};
    CStr path;
    const bool chosen = GetFileDialogService().Choose(dialog, path);
    log(chosen ? QStringLiteral("File dialog: %1").arg(ToQString(path))
               : QStringLiteral("File dialog: cancelled"));
}

void Copy(const FLog& log)
{
    const bool done = GetClipboard().Put(u"<table><tr><td>Sa</td><td>0.42 \u00B5m</td></tr></table>",
                                         u"Sa\t0.42 \u00B5m\r\n");
    log(done ? QStringLiteral("Clipboard: HTML and text")
             : QStringLiteral("Clipboard: held by another program"));
}

class CServicesPage : public CButtonPage
{
public:
    explicit CServicesPage(const FLog& log)
    {
        using namespace MessageBoxStyle;
        Add("Tell an &error", [log] { ShowBox(log, {u"The file could not be read.", c_ok | c_error}); });
        Add("&Warn and ask, with help", [log] { ShowBox(log, MakeQuestion()); });
        Add("&Ask, or cancel", [log] {
            ShowBox(log, {u"Go on with the next one?", c_okCancel | c_question});
        });
        Add("&Open a file", [log] { ChooseFile(log, true); });
        Add("&Save a file", [log] { ChooseFile(log, false); });
        Add("&Copy a result", [log] { Copy(log); });
        Add("&Make a warning sound", [] { GetMessageBoxService().Beep(c_warning); });
    }
};

} // namespace

void OpenMessageBox()
{
    GetMessageBoxService().Show(MakeQuestion());
}

QWidget* MakeServicesPage(const FLog& log)
{
    return new CServicesPage(log);
}

} // namespace Gallery
