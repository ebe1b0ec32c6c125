#pragma once

#include "common/Rect.h"
#include "common/Str.h"
#include "tests/TestData.h"

#include <cstdlib>
#include <optional>

/// A line of a script: a verb and what it is done with.
struct SCommand {
    explicit SCommand(const std::string& line)
        : verb(line.substr(0, line.find(' ')))
        , text(verb.size() < line.size() ? line.substr(verb.size() + 1) : std::string())
        , words(SplitText(text, ' '))
    {
    }

    /// A word as a number; 0 for what is none, or not there.
    template<class T = int>
    T Get(std::size_t word = 0) const
    {
        return word < words.size() ? static_cast<T>(std::strtod(words[word].c_str(), nullptr)) : T();
    }
    bool IsYes() const { return text == "yes"; }

    std::string verb;
    std::string text;
    std::vector<std::string> words;
};

/// Left, top, right and bottom.
inline std::string ToText(const CommonUI::SRect& rect)
{
    return CommonUI::CStr::Format(u"(%d %d %d %d)", rect.left, rect.top, rect.right, rect.bottom).ToUtf8();
}

/// Plays a file of tests/data/scripts. A line is a command, "->" and what comes of it, which `play` tells;
/// empty lines and those that begin with '#' are for the reader.
template<class FPlay>
void ExpectScript(const std::string& name, const FPlay& play)
{
    const std::string path = "scripts/" + name;
    std::string played;
    for (const std::string& line : ReadTestLines(path)) {
        const std::size_t arrow = line.find("->");
        if (line.empty() || line[0] == '#')
            played += line;
        else
            played += line.substr(0, arrow) + "-> " +
                      play(SCommand(line.substr(0, line.find_last_not_of(' ', arrow - 1) + 1)));
        played += '\n';
    }
    EXPECT_EQ(played, ReadTestData(path));
}

/// Plays a script to a stage: "new" makes one, any other command goes to its Act. Its Tell says what came
/// of it.
template<class TStage>
void ExpectScriptOf(const std::string& name)
{
    std::optional<TStage> stage;
    ExpectScript(name, [&](const SCommand& command) {
        if (command.verb == "new")
            stage.emplace();
        else
            stage->Act(command);
        return stage->Tell();
    });
}
