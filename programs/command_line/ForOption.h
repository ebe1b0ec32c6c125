#pragma once

#include "measurement/Request.h"
#include "programs/command_line/CommandLine.h"

#include <string>

namespace CommandLine
{

/// Has the work done that an option asks for. @return what the work returns
/// @throws EUsage, with the option in front of the message, where it cannot be done
template<class FWork>
auto ForOption(const char* option, FWork work)
{
    try {
        return work();
    } catch (const CommonUI::Measurement::ERequest& error) {
        const bool isBare = error.GetSubject().IsEmpty();
        throw EUsage(std::string(option) + (isBare ? ": " : " ") + error.what());
    }
}

} // namespace CommandLine
