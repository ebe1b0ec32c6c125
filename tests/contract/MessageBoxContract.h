#pragma once

#include "platform/HelpService.h"
#include "platform/memory/MemoryHelpService.h"
#include "platform/MessageBoxService.h"

#include <gtest/gtest.h>

#include <vector>

namespace CommonUI
{

/// @file
/// What every service of message boxes promises. A host has a member `service`, and Expect, which gets what
/// the user does in the box that is shown next.

/// What a user does in a message box.
enum class EBoxAct {
    PressOk,
    PressCancel,
    PressYes,
    PressNo,
    Close,      ///< Escape
    Enter,      ///< presses the default button
    HelpAndYes, ///< asks for help, and presses Yes
    CheckAndYes ///< checks the box, and presses Yes
};

template<class THost>
class MessageBoxContract : public testing::Test
{
protected:
    THost host;
};

TYPED_TEST_SUITE_P(MessageBoxContract);

TYPED_TEST_P(MessageBoxContract, IsAnsweredInEachWay)
{
    using namespace MessageBoxStyle;
    using enum EMessageBoxAnswer;
    const struct {
        unsigned int style;
        EBoxAct act;
        EMessageBoxAnswer answer;
    } rows[] = {
        {c_ok | c_error, EBoxAct::PressOk, Ok},
        {c_ok, EBoxAct::Close, Ok},
        {c_okCancel, EBoxAct::PressOk, Ok},
        {c_okCancel, EBoxAct::PressCancel, Cancel},
        {c_okCancel | c_warning, EBoxAct::Close, Cancel},
        {c_okCancel | c_warning, EBoxAct::Enter, Cancel},
        {c_yesNo | c_question, EBoxAct::PressYes, Yes},
        {c_yesNo | c_question, EBoxAct::PressNo, No},
        {c_yesNo | c_question, EBoxAct::Close, No},
        {c_yesNo | c_warning, EBoxAct::Enter, No},
        {c_yesNo | c_help, EBoxAct::Close, No},
        {c_yesNo | c_help, EBoxAct::HelpAndYes, Yes},
    };
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    for (const auto& row : rows) {
        this->host.Expect(row.act);
        EXPECT_EQ(this->host.service.Show({u"Remove <b>all</b>?", row.style, 21000}), row.answer)
            << row.style << ", act " << static_cast<int>(row.act);
    }
    EXPECT_EQ(help.GetOpened(), std::vector<unsigned int>(this->host.c_opensHelp ? 1 : 0, 21000));
}

TYPED_TEST_P(MessageBoxContract, HasACheckBoxForWhatIsNotToBeAskedAgain)
{
    for (const bool checks : {true, false}) {
        bool isChecked = !checks;
        this->host.Expect(checks ? EBoxAct::CheckAndYes : EBoxAct::PressYes);
        EXPECT_EQ(this->host.service.ShowWithCheck({u"Remove?", MessageBoxStyle::c_yesNo},
                                                   u"&Do not ask again", isChecked),
                  EMessageBoxAnswer::Yes);
        EXPECT_EQ(isChecked, checks);
    }
}

REGISTER_TYPED_TEST_SUITE_P(MessageBoxContract, IsAnsweredInEachWay, HasACheckBoxForWhatIsNotToBeAskedAgain);

} // namespace CommonUI
