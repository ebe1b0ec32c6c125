#include "programs/command_line/Parser.h"

#include "programs/command_line/CommandLine.h"

#include <algorithm>
#include <utility>

namespace CommandLine
{

namespace
{

bool IsOption(std::string_view argument)
{
    return argument.size() > 1 && argument.starts_with('-');
}

std::string_view ToView(const char* argument)
{
    return argument;
}

} // namespace

void CParser::AddFlag(std::string_view option, bool& isSet)
{
    m_options.push_back({.name = option, .flag = &isSet, .isOptional = false, .take = {}});
}

void CParser::Add(std::string_view option, FTakeValue take)
{
    m_options.push_back({.name = option, .flag = nullptr, .isOptional = false, .take = std::move(take)});
}

void CParser::AddOptional(std::string_view option, FTakeValue take)
{
    m_options.push_back({.name = option, .flag = nullptr, .isOptional = true, .take = std::move(take)});
}

std::vector<std::string_view> CParser::Parse(std::span<const char* const> arguments) const
{
    std::vector<std::string_view> options;
    if (m_help && std::ranges::find(arguments, "--help", ToView) != arguments.end()) {
        *m_help = true;
        return options;
    }
    while (!arguments.empty()) {
        if (IsOption(arguments[0]))
            options.emplace_back(arguments[0]);
        arguments = arguments.subspan(Take(arguments));
    }
    return options;
}

// @return how many arguments were taken
std::size_t CParser::Take(std::span<const char* const> arguments) const
{
    const std::string argument = arguments[0];
    const auto option = std::ranges::find(m_options, argument, &SOption::name);
    if (option == m_options.end()) {
        TakeInput(argument);
        return 1;
    }
    if (option->flag) {
        *option->flag = true;
        return 1;
    }
    const bool hasValue = arguments.size() > 1 && !(option->isOptional && IsOption(arguments[1]));
    const std::string value = hasValue ? arguments[1] : "";
    if (value.empty() && !option->isOptional)
        throw EUsage(argument + " needs a value");
    option->take(argument, value);
    return hasValue ? 2 : 1;
}

void CParser::TakeInput(const std::string& argument) const
{
    if ((!m_input && !m_inputs) || IsOption(argument))
        throw EUsage("there is no option \"" + argument + "\"");
    if (m_inputs) {
        m_inputs->push_back(ToPath(argument));
        return;
    }
    if (!m_input->empty())
        throw EUsage("\"" + argument + "\" is one input too many");
    *m_input = ToPath(argument);
}

} // namespace CommandLine
