#include "programs/command_line/CommandLine.h"

#include "common/Str.h"

#include <algorithm>

namespace CommandLine
{

using CommonUI::CStr;

std::filesystem::path ParsePath(const std::string& option, const std::string& text)
{
    if (CStr::FromUtf8(text).ToUtf8() != text)
        throw EUsage(option + ": \"" + text + "\" is no text in UTF-8");
    return text;
}

std::string ToTerminal(std::string_view text)
{
    const CStr decoded = CStr::FromUtf8(text);
    std::u16string line(decoded.View());
    std::ranges::replace_if(
        line, [](char16_t unit) { return unit < u' ' || (unit >= 0x7F && unit <= 0x9F); }, u'?');
    return CommonUI::ToUtf8(line);
}

std::string GetMessage(const std::exception& error)
{
    const auto* failure = dynamic_cast<const std::filesystem::filesystem_error*>(&error);
    if (!failure)
        return error.what();
    return failure->path1().string() + ": " + failure->code().message();
}

} // namespace CommandLine
