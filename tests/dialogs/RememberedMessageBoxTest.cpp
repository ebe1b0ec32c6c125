#include "dialogs/messages/RememberedMessageBox.h"

#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <optional>

using namespace CommonUI;
using namespace MessageBoxStyle;

TEST(RememberedMessageBox, IsShownUntilItsUserHasCheckedAnAnswer)
{
    using EAnswer = EMessageBoxAnswer;
    struct SCase {
        const char16_t* key;
        unsigned int style;
        bool checks;
        EAnswer answer;
        std::optional<EAnswer> later; // of a second box; empty where that is shown
        const char16_t* checkText;
    };
    const SCase cases[] = {
        {u"a", c_ok, true, EAnswer::Ok, EAnswer::Ok, u"&Do not show this message again"},
        {u"a", c_ok, false, EAnswer::Ok, {}, u"&Do not show this message again"},
        {u"a", c_yesNo | c_warning, true, EAnswer::Yes, EAnswer::Yes, u"&Do not ask again"},
        {u"a", c_yesNo | c_question, true, EAnswer::No, EAnswer::No, u"&Do not ask again"},
        {u"a", c_yesNo, false, EAnswer::Yes, {}, u"&Do not ask again"},
        {u"a", c_okCancel | c_help, true, EAnswer::Ok, EAnswer::Ok, u"&Do not ask again"},
        {u"a", c_okCancel, true, EAnswer::Cancel, {}, u"&Do not ask again"}, // who cancels has not answered
        {u"", c_yesNo, true, EAnswer::Yes, {}, u""},
    };
    const CDiagnosticsCapture capture;
    for (const SCase& row : cases) {
        CMemoryMessageBoxService service;
        const CServiceScope<CMessageBoxService> scope(service);
        CPreferencesData preferences;
        service.SetChecking(row.checks);
        service.Prepare(row.answer);
        const SMessageBox box{u"Go on?", row.style, 21000};
        EXPECT_EQ(ShowRememberedMessageBox(row.key, box, preferences), row.answer) << row.style;
        EXPECT_EQ(service.GetShown(), std::vector{box});
        EXPECT_EQ(service.GetCheckText(), row.checkText);
        const EAnswer later = ShowRememberedMessageBox(row.key, box, preferences);
        EXPECT_EQ(service.GetShown().size(), row.later ? 1U : 2U) << row.style;
        EXPECT_EQ(later, row.later.value_or(CMessageBoxService::GetCautiousAnswer(row.style)));
        preferences.ResetDontShowAgain();
        ShowRememberedMessageBox(row.key, box, preferences);
        EXPECT_EQ(service.GetShown().size(), row.later ? 2U : 3U) << row.style;
    }
}

TEST(RememberedMessageBox, ARefusalOfAnotherVersionHidesNoCommand)
{
    CMemoryMessageBoxService service;
    const CServiceScope<CMessageBoxService> scope(service);
    const CDiagnosticsCapture capture;
    auto& preferences = GetPreferencesManager().GetData();
    preferences.RegisterDontShowAgain(u"a", false);
    service.Prepare(EMessageBoxAnswer::Ok);
    EXPECT_EQ(ShowRememberedMessageBox(u"a", {u"Go on?", c_okCancel}), EMessageBoxAnswer::Ok);
    EXPECT_EQ(ShowRememberedMessageBox(u"a", {u"Done."}), EMessageBoxAnswer::Ok);
    EXPECT_EQ(service.GetShown().size(), 1U);
    preferences.ResetDontShowAgain();
}
