#pragma once

#include "../../settings/Settings.h"
#include "../../settings/SettingsDifference.h"

#include <optional>
#include <string>
#include <vector>

namespace CommonUI
{

/// Takes a set from a file elsewhere over to the user's own sets, in two steps: Prepare finds out what would
/// change and changes nothing, Apply does it. A set of the user's that has the name of the file is replaced.
/// What cannot be done is said in a message box. User-interface thread.
class COMMONUI_API CSettingsImport
{
public:
    /// What becomes of the user's own sets.
    enum class EEffect {
        New,      ///< there is no set of the name
        Replaced, ///< the set of the name gets another content
        Same,     ///< the set of the name is the same byte for byte
    };

    /// Prepares nothing yet. @param type of the sets that can be taken over
    explicit CSettingsImport(ESettingType type);

    /// The first step: reads the file. One that is no set of the type is refused. @return whether the second
    /// step can be done
    bool Prepare(const CStr& path);
    /// Has the user choose the file first. @return false also when the user cancels
    bool PrepareByPrompt();

    /// What Apply would do; for use after Prepare was true.
    EEffect GetEffect() const noexcept { return m_effect; }
    /// What the second step would do, in a sentence.
    CStr Describe() const;
    /// The keys of the set that is there, on the left, and of the one that would take its place. None for
    /// report templates, which are documents.
    const std::vector<SSettingsDifference>& GetKeys() const noexcept { return m_keys; }
    /// The file in the folder of the user's own sets.
    const CStr& GetTarget() const noexcept { return m_target; }

    /// The second step, after Prepare was true: writes the file, byte for byte what was read. Refused if the
    /// user's set is no longer the one that the differences were shown for.
    bool Apply();

private:
    using CBytes = std::optional<std::string>; // of a file; none where there is no file

    static bool ReadTarget(const CStr& path, CBytes& bytes);
    bool IsSet(const std::string& bytes) const;
    void Compare();

    ESettingType m_type;
    CStr m_target;
    std::string m_bytes; // to be written
    CBytes m_before;     // of the target
    EEffect m_effect = EEffect::New;
    std::vector<SSettingsDifference> m_keys;
};

} // namespace CommonUI
