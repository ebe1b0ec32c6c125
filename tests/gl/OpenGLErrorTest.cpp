#include "gl/OpenGLWrapper.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"
#include "tests/Script.h"

#include <functional>
#include <map>

using namespace CommonUI;

namespace
{

constexpr std::u16string_view c_advice =
    u"\n\nFor more information please see the \"3D trouble shooting\" section of the help file.";

class OpenGLError : public CContextTest
{
protected:
    void TearDown() override { FaultyDriver::StayBroken(GL_NO_ERROR); }

    // All lines in one with the advice in short, and the icon and the help topic of each message box.
    std::string TakeReport()
    {
        CStr report = CStr::FromUtf8(TakeLines());
        report = report.Replace(c_advice, u" and advice").Replace(u"\n", u"|").Replace(u"           ", u" ");
        for (; m_seen < m_boxes.GetShown().size(); ++m_seen) {
            const SMessageBox& box = m_boxes.GetShown()[m_seen];
            report += CStr::Format(u" box %X %d", box.style, box.helpTopic);
        }
        return report.ToUtf8();
    }

    COpenGLWrapper m_wrapper;

private:
    std::size_t m_seen = 0;
};

} // namespace

TEST_F(OpenGLError, IsReportedAsTheScriptSays)
{
    using CCommand = const SCommand&;
    const std::map<std::string, std::function<bool(CCommand)>> verbs = {
        {"mistake", [](CCommand) { return glEnable(GL_NONE), false; }},
        {"break", [](CCommand c) { return FaultyDriver::StayBroken(c.Get<GLenum>()), false; }},
        {"message", [](CCommand) { return OpenGLErrorMsg(u"Draw %d", u"Scene", u"View", 7); }},
        {"plain", [](CCommand) { return OpenGLErrorMsg(u"Draw", u"", u"", 7); }},
        {"test", [this](CCommand) { return m_wrapper.TestOpenGLError(u"Clear", u"", u"", 0); }},
        {"copy",
         [this](CCommand) {
             COpenGLWrapper copy = m_wrapper, assigned;
             assigned = copy;
             return copy.TestOpenGLError(u"", u"", u"", 0) && assigned.TestOpenGLError(u"", u"", u"", 0);
         }},
        {"diagnose", [](CCommand) { return COpenGLWrapper::DiagnoseOutputError(), false; }},
    };
    ExpectScript("gl-errors.txt", [&](const SCommand& command) {
        const bool failed = verbs.at(command.verb)(command);
        return (failed ? "failed" : "fine") + TakeReport();
    });
}
