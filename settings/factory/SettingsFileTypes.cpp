#include "settings/factory/detail/SettingsFileTypes.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

// Filters are no texts of the string table: dialogs are known by them, in every language.
constexpr SSettingsFileType c_files[] = {
    {ESettingType::Batch, u"batch", u"Batch Processing Sequence (*.batch)|*.batch|All Files (*.*)|*.*||",
     u"Batch Processing Sequence (*.batch)|*.batch||"},
    {ESettingType::Filter, u"flt", u"Filter files (*.flt)|*.flt|All files (*.*)|*.*||",
     u"Filter files (*.flt)|*.flt||"},
    {ESettingType::FFT, u"fflt", u"Fourier Filter (*.fflt)|*.fflt|All Files (*.*)|*.*||",
     u"Fourier Filter (*.fflt)|*.fflt||"},
    {ESettingType::Force, u"fcs", u"Force Curve Settings (*.fcs)|*.fcs|All Files (*.*)|*.*||",
     u"Force Curve Settings (*.fcs)|*.fcs||"},
    {ESettingType::PlaneCorr, u"pln", u"Plane Correction Settings (*.pln)|*.pln|All Files (*.*)|*.*||",
     u"Plane Correction Settings (*.pln)|*.pln||"},
    {ESettingType::ColorScale, u"col", u"Color Scale definitions (*.col)|*.col|All Files (*.*)|*.*||",
     u"Color Scale definitions (*.col)|*.col||"},
    {ESettingType::PnP, u"pnps",
     u"Particle & Pore Analysis Settings (*.pnps)|*.pnps|VORN 4.8.7 or older (*.grs)|*.grs|All Files "
     u"(*.*)|*.*||",
     u"Particle & Pore Analysis Settings (*.pnps)|*.pnps||"},
    {ESettingType::ActiveReport, u"*.htm|*.html|*.doc|*.docx|*.docm",
     u"Templates (*.htm;*.html *.doc;*.docx;*.docm)|*.htm;*.html;*.doc;*.docx;*.docm|HTML Templates "
     u"(*.htm;*.html)|*.htm;*.html|Word Templates (*.doc;*.docx;*.docm)|*.doc;*.docx;*.docm|All Files "
     u"(*.*)|*.*||",
     u""},
    {ESettingType::LinearityCorrection, u"cpl",
     u"Linearity Correction Parameters (*.cpl)|*.cpl|Correction Parameters - Before VORN 6.0 (*.cp)|*.cp|All "
     u"Files (*.*)|*.*||",
     u"Linearity Correction Parameters (*.cpl)|*.cpl||"},
    {ESettingType::ZCalibration, u"cpz",
     u"Z Correction Parameters (*.cpz)|*.cpz|Correction Parameters - Before VORN 6.0 (*.cp)|*.cp|All Files "
     u"(*.*)|*.*||",
     u"Z Correction Parameters (*.cpz)|*.cpz||"},
    {ESettingType::UnitCell, u"cpu",
     u"Unit Cell Correction Parameters (*.cpu)|*.cpu|Correction Parameters - Before VORN 6.0 (*.cp)|*.cp|All "
     u"Files (*.*)|*.*||",
     u"Unit Cell Correction Parameters (*.cpu)|*.cpu||"},
    {ESettingType::ZCalibrationReference, u"crz",
     u"Z Calibration Reference (*.crz)|*.crz|Calibration Reference - Before VORN 6.0 (*.crp)|*.crp|All Files "
     u"(*.*)|*.*||",
     u"Z Calibration Reference (*.crz)|*.crz||"},
    {ESettingType::UnitCellReference, u"cru",
     u"Unit Cell Calibration Reference (*.cru)|*.cru|Calibration Reference - Before VORN 6.0 "
     u"(*.crp)|*.crp|All Files (*.*)|*.*||",
     u"Unit Cell Calibration Reference (*.cru)|*.cru||"},
    {ESettingType::Animation, u"animation",
     u"Animation files (*.animation,*.3anim)|*.animation;*.3anim|All files (*.*)|*.*||",
     u"Animation files (*.animation)|*.animation|All files (*.*)|*.*||"},
    {ESettingType::ImageRoughness, u"irs", u"Image Roughness Settings (*.irs)|*.irs|All Files (*.*)|*.*||",
     u"Image Roughness Settings (*.irs)|*.irs||"},
    {ESettingType::ProfileRoughness, u"prs",
     u"Profile Roughness Settings (*.prs)|*.prs|All Files (*.*)|*.*||",
     u"Profile Roughness Settings (*.prs)|*.prs||"},
};

} // namespace

const SSettingsFileType* FindSettingsFileType(ESettingType type)
{
    const auto* const found = std::ranges::find(c_files, type, &SSettingsFileType::type);
    return found == std::end(c_files) ? nullptr : found;
}

CStr GetMasks(const SSettingsFileType& files)
{
    return files.extension.starts_with(u'*') ? CStr(files.extension) : CStr(u"*.") + files.extension;
}

} // namespace CommonUI
