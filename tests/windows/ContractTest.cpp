#include "tests/contract/ClipboardContract.h"
#include "tests/contract/FileManagerContract.h"
#include "tests/contract/FoldersContract.h"
#include "tests/contract/LoopContract.h"
#include "tests/windows/ClipboardTesting.h"
#include "windows/detail/Api.h"
#include "windows/services/WinClipboard.h"
#include "windows/services/WinFileManager.h"
#include "windows/services/WinFolders.h"
#include "windows/services/WinMessageLoop.h"
#include "windows/services/WinTimerService.h"

using namespace CommonUI;

namespace
{

struct SWinLoop {
    // As programs have it that know nothing of the library.
    void RunProgram()
    {
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        EXPECT_EQ(message.wParam, 7U) << "the exit code";
    }
    void EndProgram() { PostQuitMessage(7); }

    CWinTimerService timers;
    CWinMessageLoop loop;
};

struct SWinClipboard {
    static CStr GetHtml() { return ReadClipboardHtml(); }
    static CStr GetText() { return ReadClipboardText(); }

    CWinClipboard clipboard;
};

struct SWinFolders {
    CWinFolders folders;
};

struct SWinFileManager {
    CWinFileManager manager;
};

} // namespace

namespace CommonUI
{

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, LoopContract, SWinLoop);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ClipboardContract, SWinClipboard);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FoldersContract, SWinFolders);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FileManagerContract, SWinFileManager);

} // namespace CommonUI
