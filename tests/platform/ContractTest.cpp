#include "platform/ConsoleTimerService.h"
#include "platform/memory/MemoryClipboard.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryFileManager.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "tests/contract/ClipboardContract.h"
#include "tests/contract/FileDialogContract.h"
#include "tests/contract/FileManagerContract.h"
#include "tests/contract/FoldersContract.h"
#include "tests/contract/LoopContract.h"
#include "tests/contract/MessageBoxContract.h"
#include "tests/DiagnosticsCapture.h"

using namespace CommonUI;

namespace
{

struct SMemoryLoop {
    void RunProgram()
    {
        EXPECT_FALSE(loop.RunUntil([] { return false; }));
    }
    void EndProgram() { loop.Quit(); }

    CConsoleTimerService timers;
    CMemoryMessageLoop loop{&timers};
};

struct SMemoryClipboard {
    CStr GetHtml() const { return clipboard.GetHtml(); }
    CStr GetText() const { return clipboard.GetText(); }

    CMemoryClipboard clipboard;
};

struct SMemoryBoxes {
    static constexpr bool c_opensHelp = false; // there is nobody to ask for it

    void Expect(EBoxAct act)
    {
        service.SetChecking(act == EBoxAct::CheckAndYes);
        switch (act) {
        case EBoxAct::PressOk:
            return service.Prepare(EMessageBoxAnswer::Ok);
        case EBoxAct::PressCancel:
            return service.Prepare(EMessageBoxAnswer::Cancel);
        case EBoxAct::PressNo:
            return service.Prepare(EMessageBoxAnswer::No);
        case EBoxAct::Close: // boxes that nobody answers
        case EBoxAct::Enter:
            return;
        default:
            return service.Prepare(EMessageBoxAnswer::Yes);
        }
    }

    CDiagnosticsCapture lines;
    CMemoryMessageBoxService service;
};

struct SMemoryFileDialogs {
    void Expect(const CStr& path) { service.Prepare(path); }
    // The memory has what the dialog proposes.
    void Accept()
    {
        const CFileDialogMemory::SPlace* const place = service.GetMemory().Find(u"Filter");
        service.Prepare(place ? place->folder + place->file : CStr());
    }

    CMemoryFileDialogService service;
};

struct SSystemFolders {
    const CFolders& folders = GetFolders();
};

struct SMemoryTrash {
    CTemporaryFolder trash;
    CMemoryFileManager manager{trash.GetPath()};
};

} // namespace

namespace CommonUI
{

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, LoopContract, SMemoryLoop);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ClipboardContract, SMemoryClipboard);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, MessageBoxContract, SMemoryBoxes);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FileDialogContract, SMemoryFileDialogs);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FoldersContract, SSystemFolders);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FileManagerContract, SMemoryTrash);

} // namespace CommonUI
