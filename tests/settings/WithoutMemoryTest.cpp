#include "settings/preferences/PreferencesData.h"
#include "tests/common/FailingAllocation.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(WithoutMemory, GeneralPreferencesAreLoadedInFullOrNotAtAll)
{
    CInifile ini;
    ini.LoadBytes("[Preferences]\nAccelerationMode=2\nPreviewTargetTime=0.5\nDecimalSeparator=Comma\n"
                  "DontShowAgainKeys=a question with a long key,another one with a long key\n"
                  "DontShowAgain_a question with a long key=1\n");
    for (CEachAllocation each; each.Next();) {
        SCOPED_TRACE(each.GetNumber());
        CPreferencesData data;
        data.RegisterDontShowAgain(u"old", true);
        data.Set3DPreviewTargetTime(0.1);
        const bool loaded = each.Try([&] { data.Load(ini); });
        bool answer = false;
        EXPECT_EQ(data.GetDontShowAgain(u"old", answer), !loaded);
        EXPECT_EQ(data.GetDontShowAgain(u"another one with a long key", answer), loaded);
        EXPECT_EQ(data.Get3DPreviewTargetTime(), loaded ? 0.5 : 0.1);
        EXPECT_EQ(data.Get3DAccelerationMode() == E3DAccelerationMode::Hardware, loaded);
        EXPECT_EQ(data.GetDecimalSeparator() == CPreferencesData::EDecimalSeparator::Comma, loaded);
        EXPECT_EQ(data.IsModified(), !loaded);
    }
}
