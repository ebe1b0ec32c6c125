#include "common/Exceptions.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(Exceptions, CarryTheirPlaceAndMessage)
{
    try {
        throw EInternal(u"Parameter", 42, u"CParameter::Get", u"no height in \u00b5m");
    } catch (const EBase& e) {
        EXPECT_EQ(e.GetFile(), u"Parameter");
        EXPECT_EQ(e.GetLine(), 42);
        EXPECT_EQ(e.GetFunction(), u"CParameter::Get");
        EXPECT_EQ(e.GetMessageText(), u"no height in \u00b5m");
        EXPECT_STREQ(e.what(), "no height in \xC2\xB5m");
        const EBase copy(e);
        EXPECT_STREQ(copy.what(), e.what());
    }
}

TEST(Exceptions, AreToldApart)
{
    const auto throwInput = [] { throw EInput(u"", 0, u"", u"input"); };
    EXPECT_THROW(throwInput(), EInput);
    EXPECT_THROW(throwInput(), std::exception);
    static_assert(!std::is_base_of_v<EInternal, EInput> && !std::is_base_of_v<EInput, EInternal>);
}
