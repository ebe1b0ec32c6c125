#include "programs/command_line/CommandLine.h"

#include "common/ControlCharacters.h"
#include "common/PathText.h"
#include "common/Str.h"

namespace CommandLine
{

using CommonUI::CStr;

std::filesystem::path ToPath(const std::string& text)
{
#if defined(_WIN32) // whose names are no bytes
    return CommonUI::ToPath(CStr::FromUtf8(text));
#else
    return text;
#endif
}

std::filesystem::path ParsePath(const std::string& option, const std::string& text)
{
    if (CStr::FromUtf8(text).ToUtf8() != text)
        throw EUsage(option + ": \"" + text + "\" is no text in UTF-8");
    return ToPath(text);
}

std::string ToTerminal(std::string_view text)
{
    return CommonUI::ToUtf8(CommonUI::ReplaceControls(CStr::FromUtf8(text), u'?'));
}

std::string GetMessage(const std::exception& error)
{
    const auto* failure = dynamic_cast<const std::filesystem::filesystem_error*>(&error);
    if (!failure)
        return error.what();
    return failure->path1().string() + ": " + failure->code().message();
}

} // namespace CommandLine
