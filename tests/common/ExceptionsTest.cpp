#include "common/Exceptions.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(Exceptions, CarryTheirPlaceAndMessage)
{
    try {
        throw EInternal(u"Parameter", 42, u"CParameter::Get", u"no height in \u00b5m");
    } catch (const EBase& e) {
        EXPECT_TRUE(e.GetFile() == u"Parameter" && e.GetLine() == 42 &&
                    e.GetFunction() == u"CParameter::Get");
        EXPECT_EQ(e.GetMessageText(), u"no height in \u00b5m");
        EXPECT_STREQ(EBase(e).what(), "no height in \xC2\xB5m");
    }
}
