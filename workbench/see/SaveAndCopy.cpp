#include "workbench/see/SaveAndCopy.h"

#include "common/file/FileBytes.h"
#include "platform/Clipboard.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "workbench/see/SeeTexts.h"

namespace Workbench
{

using CommonUI::CStr;

void CopyTable(const CStr& text)
{
    CStr html = text.Replace(u"&", u"&amp;").Replace(u"<", u"&lt;").Replace(u">", u"&gt;");
    html = html.Replace(u"\t", u"</td><td>").Replace(u"\r\n", u"</td></tr>\r\n<tr><td>");
    CommonUI::GetClipboard().Put(u"<table>\r\n<tr><td>" + html + u"</td></tr>\r\n</table>", text);
}

CStr ChooseFileToSave(const CStr& filter, const CStr& extension, const CStr& proposed)
{
    CStr path;
    CommonUI::GetFileDialogService().Choose({.forOpen = false,
                                             .filter = filter,
                                             .extension = extension,
                                             .memoryKey = u"Curves",
                                             .file = proposed},
                                            path);
    return path;
}

void SaveFile(const CStr& path, std::string_view bytes)
{
    CStr reason;
    if (!CommonUI::ReplaceFileBytes(path, bytes, reason))
        TellNotSaved(reason);
}

void TellNotSaved(const CStr& reason)
{
    using namespace CommonUI::MessageBoxStyle;
    CommonUI::GetMessageBoxService().Show(
        {.text = CStr::Format(Text(ESeeText::NotSaved), reason), .style = c_ok | c_warning});
}

} // namespace Workbench
