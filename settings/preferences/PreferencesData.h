#pragma once

#include "../../common/Enum.h"
#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"
#include "../../model/BaseData.h"

#include <map>
#include <string_view>

namespace CommonUI
{

/// How three-dimensional views are drawn. The numbers are stored.
///
/// The code that sets up OpenGL for a view reads them so:
/// - Software: take the system's software renderer where there is one, for displays whose driver draws
///   wrongly.
/// - Automatic: ask for an accelerated pixel format and take whatever the system gives.
/// - Hardware: take an accelerated pixel format only; where there is none, show a message in place of the
///   view, since a software renderer would be too slow to be of use.
enum class E3DAccelerationMode : int { Software = 0, Automatic = 1, Hardware = 2 };

/// The modes with the texts of a selection list. For an unknown key the value is Automatic.
COMMONUI_API const CEnum<E3DAccelerationMode>& Get3DAccelerationModeEnum();

/// The preferences of the application that belong to no analysis.
///
/// They stand in a section of their own, whichever section is the current one; the keys are described in
/// docs/preferences-file.md. The setters of the three values set the modified flag; the answers do not, as an
/// application saves them whenever it saves at all. User-interface thread only.
class COMMONUI_API CPreferencesData : public CBaseData
{
public:
    /// The section that Load and Save use.
    COMMONUI_CONSTANT std::u16string_view c_section = u"Preferences";

    /// What separates the integer part of a number from its fraction in texts for people.
    enum class EDecimalSeparator : int { Period = 0, Comma = 1 };

    /// For an unknown key the value is Period.
    static const CEnum<EDecimalSeparator>& GetDecimalSeparatorEnum();

    CPreferencesData();
    CPreferencesData(const CPreferencesData&) = default;
    CPreferencesData(CPreferencesData&&) noexcept = default;
    CPreferencesData& operator=(const CPreferencesData&) = default;
    CPreferencesData& operator=(CPreferencesData&&) noexcept = default;
    ~CPreferencesData() override;

    using CBaseData::Load;
    /// Gives all but the decimal separator their defaults: the separator follows the user's system or the
    /// file and is nothing that a dialog resets.
    void Init() override;
    /// Reads what Save wrote, and the decimal separator. What the file does not say keeps its value, except
    /// the answers, which are replaced. An acceleration mode that there is not becomes Automatic, an unknown
    /// separator Period. Clears the modified flag, unless the acceleration mode came from the section of
    /// earlier versions: that has to be saved in today's.
    /// @return true: what can fail is loading the file
    virtual bool Load(CInifile& ini);
    /// Writes all but the decimal separator, which the file says only where its owner or an installation
    /// wants another than the default, and clears the modified flag. Answers that were forgotten since are
    /// removed.
    /// @return true: what can fail is saving the file
    bool Save(CInifile& ini) override;

    /// From the start Automatic.
    E3DAccelerationMode Get3DAccelerationMode() const noexcept { return m_accelerationMode; }
    /// Sets the modified flag, also where nothing changes.
    void Set3DAccelerationMode(E3DAccelerationMode mode) noexcept;
    /// The time in seconds that one preview frame of a three-dimensional view should take, from the start
    /// 0.05. Finite, but in no range: who draws decides what is sensible.
    double Get3DPreviewTargetTime() const noexcept { return m_previewTargetTime; }
    /// Sets the modified flag, also where nothing changes. @param seconds finite
    void Set3DPreviewTargetTime(double seconds) noexcept;
    /// From the start Period.
    EDecimalSeparator GetDecimalSeparator() const noexcept { return m_decimalSeparator; }
    /// Sets the modified flag, also where nothing changes.
    void SetDecimalSeparator(EDecimalSeparator separator) noexcept;

    /// The answer to a question that the user asked not to be shown again.
    /// @param key any text that names the question
    /// @return false, and `answer` stays, when the question is still to be asked
    bool GetDontShowAgain(const CStr& key, bool& answer) const;
    /// Keeps the answer, in place of an earlier one.
    void RegisterDontShowAgain(const CStr& key, bool answer);
    /// Forgets all answers, so that all questions are asked again.
    void ResetDontShowAgain() noexcept { m_answers.clear(); }

protected:
    /// A hook for applications that make the process's locale follow the decimal separator. The library needs
    /// none, and nothing here calls it: returns true.
    virtual bool SetupLocale() const;

private:
    void LoadAccelerationMode(CInifile& ini);
    void LoadAnswers(const CInifile& ini);
    void LoadDecimalSeparator(const CInifile& ini);
    void SaveAnswers(CInifile& ini) const;

    EDecimalSeparator m_decimalSeparator = EDecimalSeparator::Period;
    E3DAccelerationMode m_accelerationMode = {};
    double m_previewTargetTime = 0;
    std::map<CStr, bool> m_answers; // by the questions' keys
};

} // namespace CommonUI
