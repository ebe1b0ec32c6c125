#include "platform/HelpService.h"

#include "common/Diagnostics.h"
#include "common/Str.h"

#include <utility>

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

CHelpService* s_service = nullptr;

} // namespace

CHelpService::~CHelpService() = default;

bool CMemoryHelpService::Open(unsigned int topic)
{
    m_opened.push_back(topic);
    return true;
}

CHelpService& GetHelpService()
{
    static CNoHelpService& none = *new CNoHelpService;
    return s_service ? *s_service : none;
}

CHelpService* SetHelpService(CHelpService* service)
{
    return std::exchange(s_service, service);
}

} // namespace CommonUI
