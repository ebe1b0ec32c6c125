#include "programs/gl_report/Report.h"

#include "common/Diagnostics.h"
#include "gl/OpenGLWrapper.h"
#include "gl/PixelFormatText.h"
#include "programs/gl_report/PixelFormat.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#include <utility>

namespace GlReport
{

using CommonUI::CStr;
using CommonUI::G_OpenGLWrapper;

namespace
{

// Takes what goes to the diagnostics while the object lives.
class CDiagnosticsText
{
public:
    CDiagnosticsText()
        : m_before(CommonUI::GetDiagnostics().SetSink(
              [this](const CommonUI::SDiagnosticLine& line) { m_text += line.text; }))
    {
    }
    ~CDiagnosticsText() { CommonUI::GetDiagnostics().SetSink(std::move(m_before)); }
    CDiagnosticsText(const CDiagnosticsText&) = delete;
    CDiagnosticsText& operator=(const CDiagnosticsText&) = delete;

    const CStr& GetText() const { return m_text; }

private:
    CStr m_text;
    CommonUI::CDiagnostics::FSink m_before;
};

// What the wrapper writes to the diagnostics, or a word that it writes nothing.
template<class FWrite>
CStr Captured(const FWrite& write)
{
    const CDiagnosticsText captured;
    write();
    return captured.GetText().IsEmpty() ? u"none\n" : captured.GetText();
}

CStr Section(const CStr& title, const CStr& text)
{
    return title + u"\n" + CStr(title.GetLength(), u'-') + u"\n" + text + u"\n";
}

CStr DescribePixelFormat(const Offscreen::SPixelBits& bits)
{
    return CommonUI::PixelFormatDescriptorString(MakePixelFormat(bits), u"\n") + u"\n";
}

CStr DescribeAttributes(const Offscreen::SPixelBits& bits)
{
    const SPixelAttributes list = MakePixelAttributes(bits);
    return CommonUI::ExtPixelFormatDescriptorString(static_cast<unsigned int>(list.attributes.size()),
                                                    list.attributes.data(), list.values.data(), u"\n") +
           u"\n";
}

CStr CheckExtensions()
{
    const auto answer = [](bool found) { return found ? u"yes\n" : u"no\n"; };
    const bool both = G_OpenGLWrapper.CheckExtensions(nullptr);
    return CStr(u"WGL_ARB_pixel_format: ") + answer(G_OpenGLWrapper.GetWGL_ARB_pixel_format() != nullptr) +
           u"WGL_ARB_pbuffer:      " + answer(G_OpenGLWrapper.GetWGL_ARB_pbuffer() != nullptr) +
           u"both can be used:     " + answer(both);
}

} // namespace

std::string MakeReport(const Offscreen::SPixelBits& bits)
{
    const CStr report =
        Section(u"Driver", Captured([] { G_OpenGLWrapper.DiagnoseOutputOpenGLStrings(nullptr); })) +
        Section(u"Pixel store", Captured([] { G_OpenGLWrapper.DiagnoseOutputPixelStore(); })) +
        Section(u"Stacks: depth (limit)", Captured([] { G_OpenGLWrapper.DiagnoseOutputStacks(); })) +
        Section(u"Pixel format", DescribePixelFormat(bits)) +
        Section(u"Pixel format by attributes", DescribeAttributes(bits)) +
        Section(u"Extensions of the window system", CheckExtensions()) +
        Section(u"Pending errors", Captured([] { G_OpenGLWrapper.DiagnoseOutputError(); }));
    return report.ToUtf8();
}

} // namespace GlReport
