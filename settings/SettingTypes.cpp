#include "settings/SettingTypes.h"

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_types[] = {
    {.value = 0, .iniName = u"Batch", .textId = 10001},
    {.value = 1, .iniName = u"Filter", .textId = 10002},
    {.value = 2, .iniName = u"FFT", .textId = 10003},
    {.value = 3, .iniName = u"Force", .textId = 10004},
    {.value = 4, .iniName = u"PlaneCorr", .textId = 10005},
    {.value = 5, .iniName = u"ColorScale", .textId = 10006},
    {.value = 6, .iniName = u"PnP", .textId = 10007},
    {.value = 7, .iniName = u"ActiveReport", .textId = 10008},
    {.value = 8, .iniName = u"LinearityCorrection", .textId = 10009},
    {.value = 9, .iniName = u"ZCalibration", .textId = 10010},
    {.value = 10, .iniName = u"UnitCell", .textId = 10011},
    {.value = 11, .iniName = u"ZCalibrationReference", .textId = 10012},
    {.value = 12, .iniName = u"UnitCellReference", .textId = 10013},
    {.value = 13, .iniName = u"Animation", .textId = 10014},
    {.value = 17, .iniName = u"ProfileRoughness", .textId = 10015},
    {.value = 16, .iniName = u"ImageRoughness", .textId = 10016},
    {.value = 18, .iniName = u"Unknown", .textId = 10017},
};

constexpr SEnumRow c_categories[] = {
    {.value = -1, .iniName = u"All", .textId = 10021},
    {.value = 0, .iniName = u"Recent", .textId = 10022},
    {.value = 1, .iniName = u"Custom", .textId = 10023},
    {.value = 2, .iniName = u"QuickLaunch", .textId = 10024},
    {.value = 3, .iniName = u"Example", .textId = 10025},
};

// As GetEnumOfRows; unknown numbers have the texts of the row `Fallback`, too.
template<class T, const auto& Rows, T Fallback>
const CEnum<T>& GetEnumWithFallbackRow()
{
    const auto build = [] {
        const CEnum<T> rows = CEnum<T>::FromRows(Rows);
        const auto fallback = rows.Find(static_cast<int>(Fallback));
        return new CEnum<T>(
            CEnum<T>::FromRows(Rows, CEnum<T>(Fallback, fallback->GetIniName(), fallback->GetFriendlyString(),
                                              fallback->GetShortFriendlyString())));
    };
    static const CEnum<T>& values = *build();
    return values;
}

} // namespace

const CEnum<ESettingType>& GetSettingTypeEnum()
{
    return GetEnumWithFallbackRow<ESettingType, c_types, ESettingType::Unknown>();
}

const CEnum<ESettingCategory>& GetSettingCategoryEnum()
{
    return GetEnumWithFallbackRow<ESettingCategory, c_categories, ESettingCategory::All>();
}

} // namespace CommonUI
