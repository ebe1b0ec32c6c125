#include "measurement/FailureReason.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

void Warn(std::u16string_view text)
{
    GetDiagnostics().Write(u"Test", EDiagnosticLevel::Warning, text);
}

TEST(FailureReason, IsOfTheThreadThatAsks)
{
    std::vector<CStr> others;
    const auto previous =
        GetDiagnostics().SetSink([&](const SDiagnosticLine& line) { others.emplace_back(line.text); });
    {
        const CFailureReason reason;
        Warn(u"mine");
        std::thread([] {
            Warn(u"another's");
            const CFailureReason theirs;
            Warn(u"theirs");
            EXPECT_EQ(theirs.GetText(), u"theirs");
        }).join();
        EXPECT_EQ(reason.GetText(), u"mine");
    }
    Warn(u"after");
    EXPECT_EQ(others, (std::vector<CStr>{u"another's", u"after"}));
    GetDiagnostics().SetSink(previous);
}

} // namespace

} // namespace CommonUI::Measurement
