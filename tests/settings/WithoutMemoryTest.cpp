#include "settings/preferences/PreferencesData.h"
#include "tests/common/FailingAllocation.h"

#include <gtest/gtest.h>

#include <new>

using namespace CommonUI;

TEST(WithoutMemory, GeneralPreferencesAreLoadedInFullOrNotAtAll)
{
    CInifile ini;
    ini.LoadBytes("[Preferences]\nAccelerationMode=2\nPreviewTargetTime=0.5\nDecimalSeparator=Comma\n"
                  "DontShowAgainKeys=a question with a long key,another one with a long key\n"
                  "DontShowAgain_a question with a long key=1\n");
    bool failed = true;
    for (int allocation = 1; failed; ++allocation) {
        CPreferencesData data;
        data.RegisterDontShowAgain(u"old", true);
        data.Set3DPreviewTargetTime(0.1);
        bool loaded = true;
        try {
            const CFailingAllocation failing(allocation);
            data.Load(ini);
            failed = failing.HasFailed();
        } catch (const std::bad_alloc&) {
            loaded = false;
        }
        bool answer = false;
        EXPECT_EQ(data.GetDontShowAgain(u"old", answer), !loaded) << allocation;
        EXPECT_EQ(data.GetDontShowAgain(u"another one with a long key", answer), loaded) << allocation;
        EXPECT_EQ(data.Get3DPreviewTargetTime(), loaded ? 0.5 : 0.1) << allocation;
        EXPECT_EQ(data.Get3DAccelerationMode() == E3DAccelerationMode::Hardware, loaded) << allocation;
        EXPECT_EQ(data.GetDecimalSeparator() == CPreferencesData::EDecimalSeparator::Comma, loaded);
        EXPECT_EQ(data.IsModified(), !loaded) << allocation;
    }
}
