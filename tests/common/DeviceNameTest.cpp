#include "common/file/DeviceName.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(DeviceName, IsKnownWhateverItsExtension)
{
    for (const char16_t* name : {u"CON", u"nul", u"Aux.ini", u"prn.tar.gz", u"COM1", u"lpt9.txt",
                                 u"com\u00B2", u"nul .txt", u"con:", u"CONOUT$"})
        EXPECT_TRUE(IsDeviceName(name)) << testing::PrintToString(name);
    for (const char16_t* name :
         {u"", u".", u"console", u"com", u"com0", u"com10", u"lptx", u"my nul", u"x.con", u" con"})
        EXPECT_FALSE(IsDeviceName(name)) << testing::PrintToString(name);
}
