#include "windows/services/WinServices.h"

#include "platform/ThreadService.h"
#include "platform/WorkerThread.h"
#include "tests/TemporaryFolder.h"
#include "tests/windows/ReplacedCall.h"
#include "windows/detail/Api.h"
#include "windows/dialogs/WinDarkTitle.h"
#include "windows/services/WinHelpService.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace CommonUI;

namespace
{

// The settings of a user for the test alone, gone when the object is.
class COwnRegistry
{
public:
    COwnRegistry()
    {
        RegCreateKeyExW(HKEY_CURRENT_USER, c_key, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &m_key, nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, m_key);
    }
    ~COwnRegistry()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_CURRENT_USER, c_key);
    }
    COwnRegistry(const COwnRegistry&) = delete;
    COwnRegistry& operator=(const COwnRegistry&) = delete;

    static void Set(const wchar_t* key, const wchar_t* name, DWORD value)
    {
        HKEY opened = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &opened, nullptr);
        EXPECT_EQ(
            RegSetValueExW(opened, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value),
            ERROR_SUCCESS);
        RegCloseKey(opened);
    }

private:
    static constexpr const wchar_t* c_key = L"Software\\CommonUITests";

    HKEY m_key = nullptr;
};

} // namespace

TEST(WinServices, AreInUseAsLongAsTheyLive)
{
    const auto inUse = [] {
        return std::tuple(&GetTimerService(), &GetMessageLoop(), &GetMessageBoxService(),
                          &GetFileDialogService(), &GetClipboard(), &GetFolders(), &GetScreenService(),
                          &GetSystemColors(), &GetFileManager(), &GetThreadService());
    };
    const auto before = inUse();
    {
        CWinServices services;
        EXPECT_NE(&GetTimerService(), std::get<0>(before));
        EXPECT_EQ(&GetFileDialogService(), &services.GetFileDialogs());
        EXPECT_EQ(&GetMessageLoop(), &services.GetLoop());
    }
    EXPECT_EQ(inUse(), before);
}

TEST(WinServices, ThreadsGetTheNearestPriority)
{
    CWinThreadService threads;
    const CServiceScope<CThreadService> scope(threads);
    const int rows[][2] = {{-15, -15}, {-9, -15}, {-8, -2}, {-1, -1}, {0, 0},
                           {1, 1},     {3, 2},    {8, 2},   {9, 15},  {15, 15}};
    for (const auto& [asked, got] : rows) {
        CWorkerThread thread(
            [] { return static_cast<unsigned long>(100 + GetThreadPriority(GetCurrentThread())); }, asked);
        thread.Start();
        EXPECT_EQ(thread.Wait(), static_cast<unsigned long>(100 + got)) << asked;
    }
}

TEST(WinServices, TheMainMonitorIsTheFirst)
{
    const std::vector<SScreen> screens = CWinScreenService().GetScreens();
    ASSERT_FALSE(screens.empty());
    const SScreen& main = screens.front();
    EXPECT_EQ(main.area, (SRect{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}));
    EXPECT_EQ(main.scale, 100);
    EXPECT_TRUE(main.workArea.right <= main.area.right && main.workArea.bottom <= main.area.bottom);
    EXPECT_GT(main.workArea.bottom, main.workArea.top);
}

TEST(WinServices, ColorsAreThoseOfTheUserAndChangesAreTold)
{
    const COwnRegistry registry;
    CWinMessageLoop loop;
    CWinSystemColors colors;
    int told = 0;
    colors.SetListener([&] { ++told; });
    EXPECT_EQ(colors.Get(), SSystemColors{});
    const auto change = [&] {
        for (int i = 0; i < 2; ++i) // one change in several messages
            EnumThreadWindows(
                GetCurrentThreadId(),
                [](HWND window, LPARAM) CALLBACK -> BOOL {
                    SendMessageW(window, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"ImmersiveColorSet"));
                    return TRUE;
                },
                0);
        loop.Pump();
    };
    COwnRegistry::Set(L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                      L"AppsUseLightTheme", 0);
    COwnRegistry::Set(L"Software\\Microsoft\\Windows\\DWM", L"AccentColor", 0xFF332211);
    change();
    EXPECT_EQ(colors.Get().scheme, EColorScheme::Dark);
    EXPECT_EQ(colors.Get().accent, (SColor{0x11, 0x22, 0x33}));
    EXPECT_EQ(told, 1);
    change();
    EXPECT_EQ(told, 1) << "nothing has changed";
}

TEST(WinServices, TitlesAreDarkWhereTheUserWantsThat)
{
    using FFind = FARPROC(WINAPI*)(HMODULE, const char*);
    static std::vector<std::pair<DWORD, BOOL>> s_set; // attributes and values
    // As the first systems with dark titles do.
    static constexpr auto c_set = [](HWND, DWORD attribute, const void* value, DWORD) WINAPI -> HRESULT {
        s_set.emplace_back(attribute, *static_cast<const BOOL*>(value));
        return attribute == 19 ? S_OK : E_INVALIDARG;
    };
    const CReplacedCall<FFind> find("GetProcAddress", [](HMODULE, const char*) WINAPI -> FARPROC {
        return reinterpret_cast<FARPROC>(
            reinterpret_cast<void*>(static_cast<HRESULT(WINAPI*)(HWND, DWORD, const void*, DWORD)>(c_set)));
    });
    const COwnRegistry registry;
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    {
        const CWinDarkTitle title(window);
        COwnRegistry::Set(L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                          L"AppsUseLightTheme", 0);
        SendMessageW(window, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"ImmersiveColorSet"));
    }
    const std::vector<std::pair<DWORD, BOOL>> expected{{20, FALSE}, {19, FALSE}, {20, TRUE}, {19, TRUE}};
    EXPECT_EQ(s_set, expected);
    DestroyWindow(window);
}

TEST(WinServices, HelpOpensThePageAtItsChapter)
{
    class CHelp : public CWinHelpService
    {
    public:
        using CWinHelpService::CWinHelpService;
        CStr opened;

    protected:
        bool OpenPage(const std::filesystem::path&, const CStr& address) override
        {
            opened = address;
            return true;
        }
    };
    const CTemporaryFolder folder;
    folder.Write(std::filesystem::path(u"my pages/a \u00E4 #.html"), "x");
    CHelp help(folder.GetPath());
    const SHelpTopic topics[] = {{1, u"a \u00E4 #.md", u"the-end"}};
    help.AddTopics(topics, folder.GetPath() / "my pages");
    EXPECT_TRUE(help.Open(1));
    EXPECT_TRUE(help.opened.StartsWith(u"file:///")) << help.opened.ToUtf8();
    EXPECT_TRUE(help.opened.EndsWith(u".html#the-end")) << help.opened.ToUtf8();
    EXPECT_TRUE(help.opened.Contains(u"/my%20pages/a%20")) << help.opened.ToUtf8();
    EXPECT_TRUE(help.opened.Contains(u"%23.html")) << help.opened.ToUtf8();
}

TEST(WinServices, OnlyFoldersAreShown)
{
    const CTemporaryFolder folder;
    folder.Write("a.exe", "x");
    CWinFileManager manager;
    EXPECT_FALSE(manager.OpenFolder((folder.GetPath() / "a.exe").u16string()));
    EXPECT_FALSE(manager.OpenFolder((folder.GetPath() / "none").u16string()));
    EXPECT_FALSE(manager.OpenFile((folder.GetPath() / "none").u16string()));
}
