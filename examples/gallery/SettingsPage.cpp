#include "common/ini/Inifile.h"
#include "common/PathText.h"
#include "examples/gallery/Pages.h"
#include "platform/memory/FixedFolders.h"
#include "platform/MessageLoop.h"
#include "qt/QtText.h"
#include "qt/settings/SettingsButton.h"
#include "qt/settings/SettingsDifferenceWindow.h"
#include "settings/catalogue/BuiltInSettingText.h"

#include <QFormLayout>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>

#include <filesystem>
#include <memory>
#include <vector>

namespace Gallery
{

namespace
{

using namespace CommonUI;
using enum ESettingType;

constexpr struct {
    const char* label;
    ESettingType type;
} c_tools[] = {{"&Color scale:", ColorScale},     {"&Filter:", Filter},
               {"&Plane correction:", PlaneCorr}, {"Pa&rticles and pores:", PnP},
               {"&Animation:", Animation},        {"&Report:", ActiveReport},
               {"&Z calibration:", ZCalibration}};

constexpr struct {
    const char* name;
    EBuiltInSetting setting;
} c_samples[] = {
    {"Embossing/Rolls.col", EBuiltInSetting::CSQuickLaunchGoldBrown},
    {"Embossing/Foil.col", EBuiltInSetting::CSQuickLaunchLightBlue},
    {"Wear.col", EBuiltInSetting::CSQuickLaunchGlow},
    {"Spikes of the old probe.flt", EBuiltInSetting::Filter_Curves_Spikefilter_3point_Strong},
    {"Level & zero.pln", EBuiltInSetting{11}},
};

// A settings folder that only the page sees: nobody's own sets are touched.
class CSampleFolder
{
public:
    CSampleFolder()
        : m_folders(ToPath(FromQString(m_folder.path())), ToPath(FromQString(m_folder.path())))
        , m_scope(m_folders)
    {
        for (const auto& [name, setting] : c_samples)
            Write(name, setting);
    }
    ~CSampleFolder() { CloseSettingsFactory(); }
    CSampleFolder(const CSampleFolder&) = delete;
    CSampleFolder& operator=(const CSampleFolder&) = delete;

private:
    void Write(const char* name, EBuiltInSetting setting) const
    {
        const auto path = m_folders.GetSettingsFolder() / "Custom Settings" / name;
        std::filesystem::create_directories(path.parent_path());
        CInifile ini;
        ini.LoadBytes(GetBuiltInSettingText(setting).ToUtf8());
        ini.SaveCopy(path.u16string());
    }

    QTemporaryDir m_folder;
    CFixedFolders m_folders;
    CServiceScope<CFolders> m_scope;
};

// What a tool does with a set: it tells of it, and has a value of its own.
class CTool
{
public:
    CTool(CSettingsMenu& menu, const FLog& log)
        : m_log(log)
    {
        menu.GetChosen().Subscribe(*this, &CTool::Take, m_chosen);
        menu.GetSaver().Subscribe(*this, &CTool::Fill, m_saver);
    }

private:
    void Take(CSettings& settings)
    {
        m_log(QStringLiteral("Chosen: %1, %2 bytes")
                  .arg(ToQString(settings.GetEntryInfo().m_Name))
                  .arg(settings.GetBytes().size()));
        m_settings = settings;
    }
    bool Fill(CSettings& settings)
    {
        settings.Merge(m_settings);
        m_log(QStringLiteral("Filled for %1").arg(ToQString(settings.GetEntryInfo().m_File)));
        return true;
    }

    FLog m_log;
    CSettings m_settings;
    CClosureConnection m_chosen;
    CClosureConnection m_saver;
};

class CSettingsPage : public QWidget
{
public:
    explicit CSettingsPage(const FLog& log)
    {
        auto* const form = new QFormLayout(this);
        form->setHorizontalSpacing(4 * fontMetrics().averageCharWidth());
        for (const auto& [label, type] : c_tools) {
            auto* const button = new CSettingsButton(type);
            button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            button->setMinimumWidth(30 * fontMetrics().averageCharWidth());
            form->addRow(QString::fromUtf8(label), button);
            m_tools.push_back(std::make_unique<CTool>(button->GetMenu(), log));
            m_buttons.push_back(button);
        }
        Choose(0, EBuiltInSetting::CSQuickLaunchGlow);
        Choose(1, EBuiltInSetting::Filter_Curves_Spikefilter_3point_Light);
    }
    ~CSettingsPage() override { qDeleteAll(m_buttons); }

    // Opens two windows for the picture: a menu, and a comparison.
    void Open()
    {
        m_difference = std::make_unique<CSettingsDifferenceWindow>(Filter, this);
        m_difference->SetLeft({EBuiltInSetting::Filter_Curves_Spikefilter_3point_Light, Filter});
        m_difference->SetRight({EBuiltInSetting::Filter_Curves_Spikefilter_7point_Strong, Filter});
        m_difference->resize(width() * 9 / 10, height() * 2 / 3);
        m_difference->move(mapToGlobal(QPoint(width() / 10, height() / 2)));
        m_difference->show();
        CSettingsButton& button = *m_buttons.front();
        button.GetPopup().popup(button.mapToGlobal(button.rect().bottomLeft()));
        GetMessageLoop().RunUntil([&] { return !button.GetMenu().GetScan().IsRunning(); });
        for (QAction* const action : button.GetPopup().actions())
            if (action->menu() && action->text().startsWith(QLatin1Char('C')))
                button.GetPopup().setActiveAction(action);
    }

private:
    void Choose(std::size_t button, EBuiltInSetting setting)
    {
        m_buttons[button]->GetMenu().Choose({setting, c_tools[button].type});
    }

    CSampleFolder m_samples;
    std::vector<std::unique_ptr<CTool>> m_tools;
    std::vector<CSettingsButton*> m_buttons;
    std::unique_ptr<CSettingsDifferenceWindow> m_difference;
};

} // namespace

QWidget* MakeSettingsPage(const FLog& log)
{
    return new CSettingsPage(log);
}

void StageSettingsPage(QWidget& page)
{
    static_cast<CSettingsPage&>(page).Open();
}

} // namespace Gallery
