#pragma once

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

namespace Faults
{

/// What programs of faults are told: --seconds N, how long they go on behind their first pass, and --seed N.
struct SOptions {
    double seconds = 0;
    unsigned seed = 1;
};

[[noreturn]] inline void Fail(const std::string& text)
{
    std::cerr << "a promise is broken: " << text << std::endl;
    std::_Exit(1);
}

inline void Expect(bool holds, const std::string& text)
{
    if (!holds)
        Fail(text);
}

inline SOptions ParseOptions(int argc, const char* const* argv)
{
    SOptions options;
    for (int i = 1; i < argc; i += 2) {
        const std::string option = argv[i];
        if (i + 1 == argc || (option != "--seconds" && option != "--seed")) {
            std::cerr << "options: [--seconds N] [--seed N]" << std::endl;
            std::exit(2);
        }
        if (option == "--seed")
            options.seed = static_cast<unsigned>(std::atoi(argv[i + 1]));
        else
            options.seconds = std::atof(argv[i + 1]);
    }
    return options;
}

/// Whether there is still time: passes go on until there is none, but there is always a first one.
class CTime
{
public:
    explicit CTime(const SOptions& options)
        : m_seconds(options.seconds)
    {
    }

    bool IsLeft() const { return GetSeconds() < m_seconds; }
    double GetSeconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_begin).count();
    }

private:
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    double m_seconds;
};

} // namespace Faults
