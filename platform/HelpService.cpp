#include "platform/HelpService.h"

#include "common/Diagnostics.h"
#include "common/Str.h"

namespace CommonUI
{

namespace
{

class CNoHelpService final : public CHelpService
{
public:
    bool Open(unsigned int topic) override
    {
        GetDiagnostics().Write(u"Help", EDiagnosticLevel::Warning,
                               CStr::Format(u"There is no help system to open topic %u.", topic));
        return false;
    }
};

CHelpService& GetNoHelpService()
{
    static CHelpService& none = *new CNoHelpService;
    return none;
}

} // namespace

constinit CCurrentService<CHelpService> CHelpService::s_current(GetNoHelpService);

CHelpService::~CHelpService() = default;

CHelpService& GetHelpService()
{
    return CHelpService::s_current.Get();
}

} // namespace CommonUI
