#include "platform/MessageNames.h"

#include <map>
#include <mutex>

namespace CommonUI
{

namespace
{

struct SNames {
    std::mutex mutex;
    std::map<unsigned int, CStr> names{
        {0x40E, u"ProgressCancel"},
    };
};

SNames& GetNames()
{
    // Never destroyed: threads may end after static objects are gone.
    static SNames& names = *new SNames;
    return names;
}

} // namespace

CStr GetMessageName(unsigned int message)
{
    SNames& known = GetNames();
    const std::lock_guard lock(known.mutex);
    const auto found = known.names.find(message);
    return found == known.names.end() ? CStr::Format(u"message 0x%04X", message) : found->second;
}

void SetMessageName(unsigned int message, const CStr& name)
{
    SNames& known = GetNames();
    const std::lock_guard lock(known.mutex);
    known.names[message] = name;
}

} // namespace CommonUI
