#include "gl/OpenGLWrapper.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"

using namespace CommonUI;

namespace
{

class OpenGLError : public CContextTest
{
protected:
    void TearDown() override { FaultyDriver::StayBroken(GL_NO_ERROR); }

    COpenGLWrapper m_wrapper;
};

constexpr std::u16string_view c_message =
    u"Operation: Draw %d\nOpenGL error: GL_INVALID_ENUM\nError message: \"invalid enumerant\" (1280)\n\n"
    u"For more information please see the \"3D trouble shooting\" section of the help file.";

} // namespace

TEST_F(OpenGLError, OneErrorIsReportedOnce)
{
    EXPECT_FALSE(OpenGLErrorMsg(u"Draw %d", u"Scene", u"View", 7));
    EXPECT_EQ(TakeLines(), "");
    glEnable(GL_NONE);
    EXPECT_TRUE(OpenGLErrorMsg(u"Draw %d", u"Scene", u"View", 7));
    EXPECT_EQ(m_boxes.GetShown(), std::vector<SMessageBox>{(SMessageBox{c_message, 0x4030, 21000})});
    const std::string message = ToUtf8(c_message);
    const std::string head = "           3 OpenGL Error:\n           3 ";
    const std::string box = "MessageBox 2 ";
    EXPECT_EQ(TakeLines(), head + message + " (Function: Scene) (File: View)\n" + box + message);
    EXPECT_FALSE(OpenGLErrorMsg(u"Draw %d", u"Scene", u"View", 7));
    glEnable(GL_NONE);
    EXPECT_TRUE(OpenGLErrorMsg(u"Draw %d", u"", u"", 7));
    EXPECT_EQ(TakeLines(), head + message + "\n" + box + message);
}

TEST_F(OpenGLError, NamesOfErrors)
{
    constexpr std::pair<GLenum, std::u16string_view> c_rows[] = {
        {0x500, u"GL_INVALID_ENUM\nError message: \"invalid enumerant\" (1280)\n"},
        {0x505, u"GL_OUT_OF_MEMORY\nError message: \"out of memory\" (1285)\n"},
        {0x507, u"Unknown error code\nError message: \"INVALID\" (1287)\n"},
        {100903, u"GLU_INCOMPATIBLE_GL_VERSION\nError message: \"incompatible gl version\" (100903)\n"},
    };
    for (const auto& [code, text] : c_rows) {
        FaultyDriver::StayBroken(code);
        EXPECT_TRUE(OpenGLErrorMsg(u"", u"", u"", 0));
        EXPECT_TRUE(m_boxes.GetShown().back().text.Contains(text)) << code;
    }
}

TEST_F(OpenGLError, LastingErrorIsReportedOnceForAll)
{
    EXPECT_FALSE(m_wrapper.TestOpenGLError(u"Clear", u"", u"", 0));
    glEnable(GL_NONE);
    EXPECT_TRUE(m_wrapper.TestOpenGLError(u"Clear", u"", u"", 0));
    EXPECT_TRUE(TakeLines().ends_with("           3 GLError: \"Clear\" - Fatal: 0\n"));
    EXPECT_FALSE(m_wrapper.TestOpenGLError(u"Clear", u"", u"", 0));

    FaultyDriver::StayBroken(0x507);
    EXPECT_TRUE(m_wrapper.TestOpenGLError(u"Clear", u"", u"", 0));
    EXPECT_TRUE(TakeLines().ends_with("           3 GLError: \"Clear\" - Fatal: 1\n"));
    COpenGLWrapper copy = m_wrapper, assigned;
    assigned = copy;
    for (COpenGLWrapper* wrapper : {&m_wrapper, &copy, &assigned})
        EXPECT_TRUE(wrapper->TestOpenGLError(u"Clear", u"", u"", 0));
    EXPECT_EQ(m_boxes.GetShown().size(), 2U);
    EXPECT_EQ(TakeLines(), "");
}

TEST_F(OpenGLError, ReportOfAnError)
{
    glEnable(GL_NONE);
    COpenGLWrapper::DiagnoseOutputError();
    COpenGLWrapper::DiagnoseOutputError();
    EXPECT_EQ(TakeLines(), "           1 Error: \"invalid enumerant\" (1280)\n");
    FaultyDriver::StayBroken(0x507);
    COpenGLWrapper::DiagnoseOutputError();
    EXPECT_EQ(TakeLines(), "           1 Error: INVALID (1287)\n");
    EXPECT_TRUE(m_boxes.GetShown().empty());
}
