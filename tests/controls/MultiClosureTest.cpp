#include "controls/MultiClosure.h"

#include <gtest/gtest.h>

#include <string>

using namespace CommonUI;

namespace
{

struct STarget {
    bool OnSum(int& sum)
    {
        sum += add;
        return result;
    }
    void OnText(std::string text, unsigned int number) { got += std::move(text) + std::to_string(number); }

    int add;
    bool result;
    std::string got{};
    CClosureConnection connection{};
};

struct SDerivedTarget : STarget {
};

} // namespace

TEST(MultiClosure, PassesArgumentsAsDeclaredAndJoinsResults)
{
    SDerivedTarget first{{.add = 1, .result = false}};
    STarget second{.add = 10, .result = true};
    const std::string text = "long enough not to be kept in place ";

    CMultiClosure1<bool, int&> sums;
    int sum = 0;
    EXPECT_TRUE(sums.Invoke(sum));
    sums.Subscribe(first, &SDerivedTarget::OnSum, first.connection);
    sums.Subscribe(second, &STarget::OnSum, second.connection);
    EXPECT_FALSE(sums.Invoke(sum));
    first.result = true;
    EXPECT_TRUE(sums.Invoke(sum));
    EXPECT_EQ(sum, 22);

    CMultiClosure2<void, std::string, unsigned int> texts;
    texts.Subscribe(first, &STarget::OnText, first.connection);
    texts.Subscribe(second, &STarget::OnText, second.connection);
    texts.Invoke(text, 7);
    EXPECT_EQ(std::tuple(first.got, second.got), std::tuple(text + "7", first.got));
    // A record stands for one subscription, whatever the list.
    EXPECT_EQ(sums.GetCount(), 0U);
    sums.Unsubscribe(first.connection);
    EXPECT_TRUE(first.connection.IsConnected());
    texts.Unsubscribe(first.connection);
    texts.Unsubscribe(first.connection);
    EXPECT_FALSE(first.connection.IsConnected());
    EXPECT_EQ(texts.GetCount(), 1U);
}
