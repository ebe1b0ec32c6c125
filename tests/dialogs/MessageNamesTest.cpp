#include "platform/MessageNames.h"

#include "dialogs/ProgressDialog.h"
#include "platform/ThreadMessages.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(MessageNames, MessagesAreTracedByName)
{
    EXPECT_EQ(GetMessageName(CProgressDialog::c_cancelMessage), u"ProgressCancel");
    EXPECT_EQ(GetMessageName(0x500), u"message 0x0500");
    SetMessageName(0x501, u"NewSurface");
    CDiagnosticsCapture capture;
    const unsigned long thread = GetThreadIdentifier();
    const auto play = [thread] {
        PostToThread(thread, 0x501);
        PostToThread(0, 0x500);
        TakeThreadMessage(0x500);
        TakeThreadMessage(0x501);
    };
    play();
    EXPECT_EQ(capture.GetCount(), 0) << "off";
    GetDiagnostics().SetEnabled(c_messageCategory, true);
    play();
    GetDiagnostics().SetEnabled(c_messageCategory, false);
    const std::vector<CStr> expected = {
        CStr::Format(u"Messages: NewSurface is posted to thread %lu", thread),
        u"Messages: message 0x0500 finds no thread 0",
        CStr::Format(u"Messages: NewSurface is taken by thread %lu", thread),
    };
    EXPECT_EQ(capture.Take(), expected);
}
