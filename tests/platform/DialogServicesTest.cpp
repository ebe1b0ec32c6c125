#include "platform/FileDialogService.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(MessageBoxService, AnswersThatNobodyGaveAreCautious)
{
    CMemoryMessageBoxService service;
    service.Prepare(EMessageBoxAnswer::Yes);
    const SMessageBox question{u"Remove?", MessageBoxStyle::c_yesNo | MessageBoxStyle::c_warning, 21000};
    const SMessageBox choice{u"Go on?", MessageBoxStyle::c_okCancel};
    EXPECT_EQ(service.Show(question), EMessageBoxAnswer::Yes);
    EXPECT_EQ(service.Show(question), EMessageBoxAnswer::No);
    EXPECT_EQ(service.Show(choice), EMessageBoxAnswer::Cancel);
    EXPECT_EQ(service.Show({u"Done."}), EMessageBoxAnswer::Ok);
    EXPECT_EQ(service.GetShown(), (std::vector<SMessageBox>{question, question, choice, {u"Done."}}));
    EXPECT_EQ(GetMessageBoxService().Show(question), EMessageBoxAnswer::No);
}

TEST(FileDialogService, FiltersAreTakenApart)
{
    const std::vector<std::pair<CStr, std::vector<SFileFilter>>> cases = {
        {u"Filter files (*.flt)|*.flt|All files (*.*)|*.*||",
         {{u"Filter files", {u"*.flt"}}, {u"All files", {u"*.*"}}}},
        {u"Surfaces (raw)|*.sdf; *.sur;", {{u"Surfaces (raw)", {u"*.sdf", u"*.sur"}}}},
        {u"Nothing||Text|*.txt||", {{u"Text", {u"*.txt"}}}},
        {u"(*.x)|*.x", {{u"", {u"*.x"}}}},
        {u"Alone", {}},
        {u"||", {}},
    };
    for (const auto& [text, filters] : cases)
        EXPECT_EQ(ParseFileFilters(text), filters) << text.ToUtf8();
}

TEST(FileDialogService, RemembersFolderAndFileByKeyAcrossRuns)
{
    CMemoryFileDialogService service;
    const SFileDialog dialog{.memoryKey = u"Settings_Filter", .folder = u"/custom/"};
    CStr path = u"untouched";
    EXPECT_FALSE(service.Choose(dialog, path));
    EXPECT_EQ(path, u"untouched");
    EXPECT_EQ(service.GetShown().back(), dialog);

    service.Prepare(u"/sets/a=b.flt");
    EXPECT_TRUE(service.Choose(dialog, path));
    EXPECT_EQ(path, u"/sets/a=b.flt");
    CInifile ini;
    EXPECT_TRUE(service.GetMemory().Save(ini));
    ini.WriteText(u"Settings_FFT", u"");
    CMemoryFileDialogService later;
    EXPECT_TRUE(later.GetMemory().Load(ini));
    EXPECT_FALSE(later.Choose(dialog, path));
    EXPECT_EQ(later.GetShown().back().folder, u"/sets/");
    EXPECT_EQ(later.GetShown().back().file, u"a=b.flt");
    EXPECT_FALSE(later.Choose({.memoryKey = u"Settings_FFT", .folder = u"/custom/"}, path));
    EXPECT_EQ(later.GetShown().back().folder, u"/custom/");
}
