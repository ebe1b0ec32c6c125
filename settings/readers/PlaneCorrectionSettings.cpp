#include "settings/readers/PlaneCorrectionSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

namespace CommonUI
{

using Analysis::ECorrectionMethod;
using Analysis::ECorrectionScope;

namespace
{

constexpr std::u16string_view c_section = u"PlaneCorrection";

constexpr SEnumRow c_scopes[] = {
    {.value = static_cast<int>(ECorrectionScope::Global), .iniName = u"Global", .textId = 10071},
    {.value = static_cast<int>(ECorrectionScope::Linewise), .iniName = u"Linewise", .textId = 10072},
    {.value = static_cast<int>(ECorrectionScope::Profile), .iniName = u"Profile", .textId = 10073},
};

constexpr SEnumRow c_methods[] = {
    {.value = static_cast<int>(ECorrectionMethod::Polynomial), .iniName = u"Polynomial", .textId = 10074},
    {.value = static_cast<int>(ECorrectionMethod::StepWizard), .iniName = u"StepWizard", .textId = 10075},
    {.value = static_cast<int>(ECorrectionMethod::ZeroBackground),
     .iniName = u"ZeroBackground",
     .textId = 10076},
    {.value = static_cast<int>(ECorrectionMethod::Offset), .iniName = u"Offset", .textId = 10077},
};

// The orders that a method knows; 0 for a method without.
int GreatestOrder(ECorrectionMethod method)
{
    switch (method) {
    case ECorrectionMethod::Polynomial:
        return 9;
    case ECorrectionMethod::StepWizard:
        return 2;
    default:
        return 0;
    }
}

template<class TStore, class TSettings>
void Exchange(TStore& store, TSettings& set)
{
    store.Choice(u"Scope", GetPlaneCorrectionScopeEnum(), set.scope);
    if (!store.NeededChoice(u"Method", GetPlaneCorrectionMethodEnum(), set.method))
        return;
    if (const int greatest = GreatestOrder(set.method); greatest != 0)
        store.Integer(u"Order", set.order, greatest);
}

} // namespace

const CEnum<ECorrectionScope>& GetPlaneCorrectionScopeEnum()
{
    return GetEnumOfRows<ECorrectionScope, c_scopes>();
}

const CEnum<ECorrectionMethod>& GetPlaneCorrectionMethodEnum()
{
    return GetEnumOfRows<ECorrectionMethod, c_methods, ECorrectionMethod::Polynomial>();
}

bool SPlaneCorrectionSettings::Load(CInifile& ini)
{
    SPlaneCorrectionSettings read;
    CSettingsReader reader(ini, c_section);
    Exchange(reader, read);
    if (!reader.IsUsable())
        return false;
    *this = read;
    return true;
}

void SPlaneCorrectionSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
}

} // namespace CommonUI
