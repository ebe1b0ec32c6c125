#pragma once

#include "../../controls/MultiClosure.h"
#include "../../platform/FileDialogService.h"
#include "../Settings.h"
#include "SimpleTree.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

namespace CommonUI
{

/// The one owner of all settings sets: lists them for menus, loads and saves them, and remembers what was
/// used recently. Its own stored state, the text by which a script names a set, and the folder of the user's
/// files are described in docs/settings-factory.md.
///
/// A set has an identifier for this run: that of a built-in set is its number in the catalogue, that of a
/// file is 200 or more and stays the same however often the file is met. One backslash at the end of a path
/// is no part of it, wherever the path comes from.
///
/// When memory runs out in a call, std::bad_alloc is thrown unless the call says otherwise, and no set is
/// lost from the lists.
///
/// Used on the user-interface thread. What cannot be loaded or found gives an empty set whose entry has the
/// identifier SSettingsEntry::s_InvalidID, with the reason in the diagnostics (category u"SettingsFactory"
/// or u"Inifile"); nothing throws for what files, folders and texts hold.
class COMMONUI_API CSettingsFactory
{
public:
    /// The section of the factory's own state.
    COMMONUI_CONSTANT std::u16string_view c_StorageSection = u"SettingsFactory";
    /// How many sets a recent list has at most.
    COMMONUI_CONSTANT unsigned s_MaxRecentCount = 4;
    /// A file of settings may have so many bytes; a larger one is none.
    COMMONUI_CONSTANT std::size_t c_maximumFileSize = std::size_t{64} << 20;

    /// A node of a menu: its text and the identifier of the set, s_InvalidID for a folder or heading.
    using CTree = CSimpleTree<std::pair<CStr, int>>;

    /// What a user specification names.
    struct SParseInfo {
        /// The `kind` of a file.
        static constexpr std::int32_t c_file = 1;
        /// The `kind` of a set by its identifier.
        static constexpr std::int32_t c_identifier = 2;

        std::int32_t kind = 0;                     ///< c_file or c_identifier; 0 when the selector is neither
        CStr typeText{};                           ///< what stands before the bracket
        ESettingType type = ESettingType::Unknown; ///< that the text names; Unknown where it names none
        std::vector<SSettingsEntry> entries{};     ///< none when nothing has the identifier
        CStr error{}; ///< what to tell the user when the user specification is wrong
    };

    /// Where a type's files lie, and which they are.
    struct SPlace {
        CStr folder; ///< with a separator at its end; empty when no text leads to it
        CStr masks;  ///< as "*.htm|*.html"; empty when there are no files of the type
    };

    CSettingsFactory() = default;
    CSettingsFactory(const CSettingsFactory&) = default;
    CSettingsFactory(CSettingsFactory&&) noexcept = default;
    CSettingsFactory& operator=(const CSettingsFactory& other);
    CSettingsFactory& operator=(CSettingsFactory&&) noexcept = default;
    virtual ~CSettingsFactory();

    /// Puts the stored recent sets in front of the recent lists. Opens no file: one that is gone is noticed
    /// when it is used. What no set can be meant by, and a built-in set of another type, is skipped with a
    /// line in the diagnostics.
    /// @return true always
    bool Load(CInifile& ini);
    /// Stores the recent lists. @return true always
    bool Save(CInifile& ini) const;

    /// The set of an identifier: generated when it is built in, else read from its file. When that file
    /// cannot be read, the user is asked whether it shall leave the recent list or, if it is not in it,
    /// whether the list that showed it shall be refreshed.
    /// @param addToRecent whether the set becomes the most recent one of its type
    CSettings GetSettings(int id, bool addToRecent);

    /// Reads a file and registers it. A colour scale is read again only when its file has changed.
    CSettings LoadSettings(ESettingType type, const CStr& path, bool addToRecent);

    /// Writes a set to the file of its entry and registers the entry, which gets its identifier. Returns
    /// false, the file being what it was, when the entry names no file or it cannot be written. What another
    /// program has made of the file since the set was loaded from it is kept (see CInifile::SaveWhole).
    bool SaveSettings(CSettings& settings, bool addToRecent);

    /// Lets the user choose a file and loads it. When that fails, a message box says so.
    /// @param settings receives the set; left alone unless the result is true
    /// @param initialPath the file proposed; when empty, the one chosen last
    /// @return false when the user cancels or loading fails
    bool LoadSettingsPrompt(CSettings& settings, ESettingType type, const CStr& initialPath,
                            bool addToRecent);

    /// Lets the user choose a file, has the set filled and saves it. When that fails, a message box says so.
    /// @param path the file proposed; receives the one saved
    /// @param saver fills the set, which has an entry for the file; if a subscriber returns false nothing is
    ///     written
    /// @return false when the user cancels or saving fails
    bool SaveSettingsPrompt(ESettingType type, CStr& path, const CMultiClosure1<bool, CSettings&>& saver,
                            bool addToRecent);

    /// The sets of all categories, each category below its heading: recent, the user's own, built-in.
    /// A category without sets has no heading. No file is opened.
    /// @param withRecent false leaves the recent sets out, which are among the others, too
    std::vector<CTree> GetTree(ESettingType type, bool withRecent);
    /// The sets of one category below its heading, or of all.
    std::vector<CTree> GetTree(ESettingType type, ESettingCategory category);
    /// The files below a folder, folders first, both in the order of their names without regard to case and
    /// with numbers by value. Folders without such files are left out, links that lead in a circle are not
    /// followed.
    /// @param masks as "*.htm|*.html", without regard to case
    std::vector<CTree> GetTree(ESettingType type, const CStr& folder, const CStr& masks);
    /// The sets that a user specification named, which are registered if they were not.
    std::vector<CTree> GetTree(const SParseInfo& info);

    /// The user's own sets of a type, for who looks for them without waiting: FindFilesBelow, on any thread.
    static SPlace GetCustomPlace(ESettingType type);
    /// Whether sets of a type can be saved to files.
    static bool CanSave(ESettingType type);
    /// The dialog in which the user chooses a file of a type.
    static SFileDialog MakeOpenDialog(ESettingType type);
    /// A name with the extension of a type's files, unless it has one of them.
    static CStr AddExtension(ESettingType type, const CStr& name);
    /// The entry of a set that is built in or registered; an empty one for every other identifier.
    SSettingsEntry GetEntry(int id) const;
    /// The identifier of a file, which is registered without a recent use.
    int GetFileID(ESettingType type, const CStr& path);
    /// Has the recent list follow a file of a set.
    /// @param to its new path; empty when it is gone, which takes it from the list
    void OnFileMoved(ESettingType type, const CStr& from, const CStr& to);

    /// Takes a user specification such as u"PlaneCorr[Id(4)]" or u"Filter[File(C:\\sets\\a.flt)]" apart.
    /// @return false when it is none; `info` then has the error beside what was understood, and no entries
    bool ParseUserSpec(const CStr& spec, SParseInfo& info) const;

protected:
    /// Each appends the heading of one category with its sets, or nothing when there are none. The result is
    /// false when the category does not have sets of the type; there are no examples of any.
    bool AddRecentItems(ESettingType type, std::vector<CTree>& trees) const;
    /// See AddRecentItems. Searches the user's folder.
    bool AddCustomItems(ESettingType type, std::vector<CTree>& trees);
    /// See AddRecentItems. The sets are those of the catalogue.
    static bool AddQuickLaunchItems(ESettingType type, std::vector<CTree>& trees);
    /// See AddRecentItems. Appends nothing.
    static bool AddExampleItems(ESettingType type, std::vector<CTree>& trees);

    /// Makes an entry the most recent one of its type.
    /// @param index its position among the dynamic items; of no account for a built-in set
    void AddToRecentItems(const SSettingsEntry& entry, unsigned index);
    /// Registers an entry for a file, unless one of the same name and path is registered, and gives `entry`
    /// the identifier.
    /// @return false for a new entry of unknown type, which is registered nevertheless
    bool NewDynamicItem(SSettingsEntry& entry, bool addToRecent);
    /// Makes a set from the catalogue.
    CSettings GenerateSettings(EBuiltInSetting setting, bool addToRecent);
    /// An identifier that this factory has not given yet.
    unsigned GetNewID() noexcept { return m_nextID++; }

    /// What the file dialogs offer for a type. Report templates can be opened, but not saved.
    /// @param filter receives pairs of texts and masks, as SFileDialog has them
    /// @param extension receives the extension; for report templates, their masks
    /// @return false when there is no such dialog
    static bool GetFileDialogInfo(bool forOpen, ESettingType type, CStr& filter, CStr& extension);
    /// Appends what is below the root of a tree of folders: inner nodes are folders by name, leaves are
    /// files by path, which are registered.
    void GetTree_RecursiveAdd(ESettingType type, const CSimpleTree<CStr>& folderTree,
                              std::vector<CTree>& trees);

private:
    // Whether a set is a file, and its index among the dynamic items of the type or its built-in number.
    using CRecentKey = std::pair<bool, unsigned>;
    using CRecentKeys = std::deque<CRecentKey>;
    // By what a registered item is found.
    struct SItemKey {
        CStr name;
        CStr file;
        bool operator==(const SItemKey&) const = default;
    };
    struct SItemHash {
        std::size_t operator()(const SItemKey& key) const noexcept { return std::hash<CStr>()(key.file); }
    };
    // The size of a file and the time of its last change.
    using CFileStamp = std::pair<std::uintmax_t, std::filesystem::file_time_type>;
    struct SKeptScale {
        CInifile document;
        CFileStamp stamp;
    };

    const SSettingsEntry* FindDynamicItem(int id) const;
    CRecentKey GetFileKey(const SSettingsEntry& entry) const;
    CRecentKeys WithRecent(ESettingType type, const CRecentKey& key) const;
    void WithdrawItems(ESettingType type, std::size_t from) noexcept;
    void AskToForget(const SSettingsEntry& entry);

    void LoadRecentItem(ESettingType type, const CStr& text);
    CStr GetStoredText(ESettingType type, const CRecentKey& key) const;

    CSettings LoadEntry(SSettingsEntry entry, bool addToRecent);
    static bool ReadSettingsFile(const CStr& path, CInifile& document);
    bool ReadColorScale(const CStr& path, CInifile& document);
    std::vector<SSettingsEntry> FindByIdentifier(ESettingType type, std::u16string_view identifier) const;

    // The most recent first.
    std::map<ESettingType, CRecentKeys> m_recent;
    // The files met during this run, in order of their first appearance and so of their identifiers.
    std::map<ESettingType, std::vector<SSettingsEntry>> m_dynamicItems;
    // Where in m_dynamicItems an item stands.
    std::map<ESettingType, std::unordered_map<SItemKey, unsigned, SItemHash>> m_indices;
    // Built-in sets have the numbers below.
    COMMONUI_CONSTANT unsigned c_firstFileID = 200;
    static_assert(!IsBuiltInSetting(c_firstFileID));
    unsigned m_nextID = c_firstFileID;
    std::map<CStr, SKeptScale> m_colorScales;
};

/// The factory of the process; the first call, and the first one after CloseSettingsFactory, makes it.
COMMONUI_API CSettingsFactory& GetSettingsFactory();
/// Destroys the factory of the process.
COMMONUI_API void CloseSettingsFactory();

} // namespace CommonUI
