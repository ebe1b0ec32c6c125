#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace CommandLine
{

/// Receives an option and the value behind it.
using FTakeValue = std::function<void(const std::string& option, const std::string& value)>;

/// Takes command lines apart, argument by argument, by the options that were added.
class CParser
{
public:
    /// --help. Where it stands, nothing else of the command line is looked at.
    void AddHelp(bool& isAsked) { m_help = &isAsked; }
    /// An option without a value.
    void AddFlag(std::string_view option, bool& isSet);
    /// An option with a value, which is not empty.
    void Add(std::string_view option, FTakeValue take);
    /// An option whose value is empty where another option or nothing follows.
    void AddOptional(std::string_view option, FTakeValue take);
    /// What does not begin with a hyphen is the input. Without it there is none.
    void AddInput(std::filesystem::path& input) { m_input = &input; }
    /// The same for any number of inputs.
    void AddInputs(std::vector<std::filesystem::path>& inputs) { m_inputs = &inputs; }

    /// @param arguments without the program's name
    /// @return the options that stand there, in their order; none beside --help
    /// @throws EUsage, and what takes a value may throw it as well
    std::vector<std::string_view> Parse(std::span<const char* const> arguments) const;

private:
    struct SOption {
        std::string_view name;
        bool* flag;
        bool isOptional; // its value
        FTakeValue take;
    };

    std::size_t Take(std::span<const char* const> arguments) const;
    void TakeInput(const std::string& argument) const;

    std::vector<SOption> m_options{};
    bool* m_help = nullptr;
    std::filesystem::path* m_input = nullptr;
    std::vector<std::filesystem::path>* m_inputs = nullptr;
};

} // namespace CommandLine
