#include "settings/readers/PlaneCorrectionSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_section = u"PlaneCorrection";

constexpr SEnumRow c_scopes[] = {
    {.value = 0, .iniName = u"Global", .textId = 10071},
    {.value = 1, .iniName = u"Linewise", .textId = 10072},
    {.value = 2, .iniName = u"Profile", .textId = 10073},
};

constexpr SEnumRow c_methods[] = {
    {.value = 0, .iniName = u"Polynomial", .textId = 10074},
    {.value = 1, .iniName = u"StepWizard", .textId = 10075},
    {.value = 2, .iniName = u"ZeroBackground", .textId = 10076},
    {.value = 3, .iniName = u"Offset", .textId = 10077},
};

// The orders that a method knows; 0 for a method without.
int GreatestOrder(EPlaneCorrectionMethod method)
{
    switch (method) {
    case EPlaneCorrectionMethod::Polynomial:
        return 9;
    case EPlaneCorrectionMethod::StepWizard:
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

const CEnum<EPlaneCorrectionScope>& GetPlaneCorrectionScopeEnum()
{
    return GetEnumOfRows<EPlaneCorrectionScope, c_scopes>();
}

const CEnum<EPlaneCorrectionMethod>& GetPlaneCorrectionMethodEnum()
{
    return GetEnumOfRows<EPlaneCorrectionMethod, c_methods>();
}

bool SPlaneCorrectionSettings::Load(CInifile& ini)
{
    SPlaneCorrectionSettings read;
    Detail::CSettingsReader reader(ini, c_section);
    Exchange(reader, read);
    if (!reader.IsUsable())
        return false;
    *this = read;
    return true;
}

void SPlaneCorrectionSettings::Save(CInifile& ini) const
{
    Detail::CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
}

} // namespace CommonUI
