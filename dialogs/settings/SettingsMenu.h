#pragma once

#include "../../settings/Settings.h"
#include "CustomSettingsScan.h"

#include <map>
#include <vector>

namespace CommonUI
{

/// What a menu of settings offers besides sets.
enum class ESettingsCommand {
    AllSets, ///< the chooser: CSettingsChooser
    Load,
    SaveAs,
    Import,  ///< CSettingsImport
    Compare, ///< CompareSettings
    Manage,  ///< CSettingsMenu::Rename and Delete, OpenSettingsFolder
};

/// An entry of a menu of settings.
struct SSettingsMenuItem {
    /// What an entry is, and so which of the members mean something.
    enum class EKind {
        Set,
        Group,     ///< a menu of its own
        Heading,   ///< of what follows
        Note,      ///< says something and cannot be chosen
        Separator, ///< without a text
        Command, ///< its text has a mnemonic, marked by `&`; those of all others are to be shown as they are
    };

    EKind kind = EKind::Separator; ///< what it is
    CStr text{};                   ///< what is shown; empty for a separator
    SSettingsEntry entry{};        ///< of a set; that of a file that was found has no identifier yet
    bool isCurrent = false;        ///< of a set
    bool isCustom =
        false; ///< of the group of the user's own sets: its items are CSettingsMenu::MakeCustomItems
    ESettingsCommand command{};             ///< of a command
    std::vector<SSettingsMenuItem> items{}; ///< of a group
};

/// The menu of settings of one type: recent sets, the user's own, which come in while the menu is open,
/// built-in ones in their groups, and commands. It knows which set its tool has and tells who subscribes what
/// was chosen. The settings factory is that of the process.
///
/// A callback may destroy the menu.
class COMMONUI_API CSettingsMenu : public CWnd
{
public:
    /// How many sets of one folder a menu has at most; the others are in the chooser.
    COMMONUI_CONSTANT std::size_t c_mostOfFolder = 40;
    /// Colours of a scale: see CCustomSettingsScan.
    using CColors = CCustomSettingsScan::CColors;

    /// @param withCommands false for a menu that picks a set and nothing more: it has no commands but the
    ///     chooser, and what is chosen does not count as used
    explicit CSettingsMenu(ESettingType type, bool withCommands = true);
    /// @param find see CCustomSettingsScan
    CSettingsMenu(ESettingType type, bool withCommands, CCustomSettingsScan::FFind find);

    /// The type whose sets the menu has.
    ESettingType GetType() const noexcept { return m_scan.GetType(); }
    /// Whether the menu offers commands besides the chooser, and what is chosen counts as used.
    bool HasCommands() const noexcept { return m_withCommands; }
    /// The search for the user's own sets. Who shows the menu starts it.
    CCustomSettingsScan& GetScan() noexcept { return m_scan; }

    /// The set that the tool has; an entry with an empty name when it has none of the factory's.
    const SSettingsEntry& GetCurrent() const noexcept { return m_current; }
    /// Says which set the tool has; nothing is loaded. GetCurrentChanged is told even if it is the same one.
    void SetCurrent(const SSettingsEntry& entry);
    /// What a button shows: the name of the current set.
    CStr GetText() const;

    /// The whole menu, as far as it is known.
    std::vector<SSettingsMenuItem> MakeItems() const;
    /// The user's own sets, by folders: what changes while the search runs.
    std::vector<SSettingsMenuItem> MakeCustomItems() const;
    /// The colours of a colour scale from its lowest to its highest; null for other sets, and as long as
    /// those of a file are not known.
    const CColors* FindColors(const SSettingsEntry& entry) const;
    /// Whether the menu offers a command: saving, only while somebody is subscribed to GetSaver.
    bool IsAvailable(ESettingsCommand command) const;

    /// Has the factory load a set. If that works, it is the current one, and GetChosen is called. If not, the
    /// user has been asked what the factory asks, and the folder is looked through again.
    /// @return whether the set was loaded
    bool Choose(const SSettingsEntry& entry);
    /// Has the user choose a file; otherwise as Choose.
    bool Load();
    /// Has the user name a file and the tool fill it: GetSaver. @return whether it was saved
    bool SaveAs();

    /// RenameSettings and DeleteSettings for a file; the folder is looked through again. The current set
    /// follows when it gets another name; that of a file in the trash is still what the tool has.
    /// @param entry receives the new path
    bool Rename(SSettingsEntry& entry, const CStr& name);
    /// Moves the file of a set to the trash if the user agrees. @return whether that was done
    bool Delete(const SSettingsEntry& entry);

    /// Told of every set that was chosen or loaded.
    CMultiClosure1<void, CSettings&>& GetChosen() noexcept { return m_chosen; }
    /// Fills a set with what the tool has now, in place of what the set holds. The menu can save sets if
    /// somebody is subscribed.
    CMultiClosure1<bool, CSettings&>& GetSaver() noexcept { return m_saver; }
    /// Told when there is another current set.
    CMultiClosure0<void>& GetCurrentChanged() noexcept { return m_currentChanged; }

private:
    using CItems = std::vector<SSettingsMenuItem>;

    SSettingsMenuItem MakeSet(const SSettingsEntry& entry) const;
    CItems MakeTreeItems(const std::vector<CSettingsFactory::CTree>& trees) const;
    CItems MakeFileItems(const CSimpleTree<CStr>& files) const;
    void AddRecent(CItems& items) const;
    void AddCustom(CItems& items) const;
    void AddBuiltIn(CItems& items) const;
    void AddCommands(CItems& items) const;
    static SSettingsMenuItem MakeCommand(ESettingsCommand command);
    void Use(CSettings& settings);

    bool m_withCommands;
    CCustomSettingsScan m_scan;
    SSettingsEntry m_current;
    mutable std::map<EBuiltInSetting, CColors> m_builtInColors;
    CMultiClosure1<void, CSettings&> m_chosen;
    CMultiClosure1<bool, CSettings&> m_saver;
    CMultiClosure0<void> m_currentChanged;
};

/// Whether two entries name one set: the same built-in one, or the same file.
COMMONUI_API bool IsSameSet(const SSettingsEntry& one, const SSettingsEntry& other);

} // namespace CommonUI
