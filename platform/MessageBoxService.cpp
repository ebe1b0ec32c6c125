#include "platform/MessageBoxService.h"

#include "common/Diagnostics.h"

namespace CommonUI
{

namespace
{

class CSilentMessageBoxService final : public CMessageBoxService
{
public:
    EMessageBoxAnswer Show(const SMessageBox& box) override
    {
        GetDiagnostics().Write(u"MessageBox", EDiagnosticLevel::Warning, box.text);
        return GetCautiousAnswer(box.style);
    }
};

} // namespace

constinit CCurrentService<CMessageBoxService> CMessageBoxService::s_current(GetSilentMessageBoxService);

CMessageBoxService::~CMessageBoxService() = default;

EMessageBoxAnswer CMessageBoxService::ShowWithCheck(const SMessageBox& box, const CStr&, bool& isChecked)
{
    isChecked = false;
    return Show(box);
}

void CMessageBoxService::Beep(unsigned int)
{
}

EMessageBoxAnswer CMessageBoxService::GetCautiousAnswer(unsigned int style) noexcept
{
    switch (style & MessageBoxStyle::c_buttonMask) {
    case MessageBoxStyle::c_yesNo:
        return EMessageBoxAnswer::No;
    case MessageBoxStyle::c_okCancel:
        return EMessageBoxAnswer::Cancel;
    default:
        return EMessageBoxAnswer::Ok;
    }
}

CMessageBoxService& GetSilentMessageBoxService()
{
    // Never destroyed, so that destructors of static objects may still report.
    static CMessageBoxService& service = *new CSilentMessageBoxService;
    return service;
}

CMessageBoxService& GetMessageBoxService()
{
    return CMessageBoxService::s_current.Get();
}

} // namespace CommonUI
