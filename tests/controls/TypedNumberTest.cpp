#include "controls/TypedNumber.h"

#include "tests/Script.h"

using namespace CommonUI;

namespace
{

std::string ToText(const std::optional<double>& number)
{
    return number ? CStr::Format(u"%.12g", *number).ToUtf8() : "refused";
}

} // namespace

TEST(TypedNumber, IsReadWhollyOrNotAtAll)
{
    ExpectScript("typed-numbers.txt", [](const SCommand& command) {
        const CStr text = CStr::FromUtf8(command.text);
        if (command.verb == "integer")
            return ToText(ReadTypedInteger(text));
        return ToText(ReadTypedReal(text, command.verb == "-" ? CStr() : CStr::FromUtf8(command.verb)));
    });
}
