#pragma once

#include "common/PathText.h"
#include "platform/FileDialogService.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// @file
/// What every service of file dialogs promises. A host has a member `service`; Expect, which gets the path
/// that the user enters in the dialog that is shown next, an empty one for a user who cancels; and Accept,
/// for a user who takes what the dialog proposes.

template<class THost>
class FileDialogContract : public testing::Test
{
protected:
    CStr PathOf(const char* name)
    {
        return std::filesystem::path(folder.GetPath() / name).make_preferred().u16string();
    }

    CTemporaryFolder folder;
    THost host;
};

TYPED_TEST_SUITE_P(FileDialogContract);

TYPED_TEST_P(FileDialogContract, GivesThePathThatIsChosenAndLeavesItWhenCancelled)
{
    this->folder.Write("old.flt", "x");
    const SFileDialog open{.filter = u"Filters (*.flt)|*.flt;*.filter|All files (*.*)|*.*||",
                           .extension = u"flt"};
    CStr path = u"untouched";
    this->host.Expect({});
    EXPECT_FALSE(this->host.service.Choose(open, path));
    EXPECT_EQ(path, u"untouched");
    for (const bool forOpen : {true, false}) {
        SFileDialog dialog = open;
        dialog.forOpen = forOpen;
        const CStr chosen = this->PathOf(forOpen ? "old.flt" : "new.flt");
        this->host.Expect(chosen);
        EXPECT_TRUE(this->host.service.Choose(dialog, path));
        EXPECT_EQ(path, chosen);
    }
    EXPECT_FALSE(std::filesystem::exists(this->folder.GetPath() / "new.flt")) << "the dialog writes nothing";
}

TYPED_TEST_P(FileDialogContract, RemembersTheChoiceOfEachKey)
{
    this->folder.Write("a.flt", "x");
    CStr path;
    this->host.Expect(this->PathOf("a.flt"));
    EXPECT_TRUE(this->host.service.Choose({.memoryKey = u"Filter"}, path));
    // A user who takes what is proposed.
    this->host.Accept();
    CStr again;
    EXPECT_TRUE(this->host.service.Choose({.memoryKey = u"Filter"}, again));
    EXPECT_EQ(again, path);
    EXPECT_EQ(this->host.service.GetMemory().Find(u"FFT"), nullptr);
}

TYPED_TEST_P(FileDialogContract, GivesAFolder)
{
    this->folder.Write("in/old.flt", "x");
    const SFileDialog choice{.folder = this->folder.GetPath().u16string(), .isFolder = true};
    CStr path = u"untouched";
    this->host.Expect({});
    EXPECT_FALSE(this->host.service.Choose(choice, path));
    EXPECT_EQ(path, u"untouched");
    const CStr chosen = this->PathOf("in");
    this->host.Expect(chosen);
    EXPECT_TRUE(this->host.service.Choose(choice, path));
    EXPECT_EQ(path, chosen);
}

REGISTER_TYPED_TEST_SUITE_P(FileDialogContract, GivesThePathThatIsChosenAndLeavesItWhenCancelled,
                            RemembersTheChoiceOfEachKey, GivesAFolder);

} // namespace CommonUI
