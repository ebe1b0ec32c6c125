#pragma once

#include "../common/ini/Inifile.h"
#include "../common/Unit.h"
#include "../export/Export.h"
#include "Analysis.h"
#include "BaseData.h"
#include "Enumerations.h"
#include "Parameter.h"
#include "ParameterPlaces.h"

#include <map>
#include <memory>
#include <vector>

namespace CommonUI
{

/// What is done to a surface before it is evaluated. The numbers are stored.
enum class ERoughnessPreprocessingOptions {
    None = 0,
    Plane = 1,      ///< a least-squares plane is subtracted
    Paraboloid = 2, ///< a least-squares form of second order is subtracted
    Lines = 3       ///< the least-squares line of every scan line is subtracted
};

/// The preferences of one analysis: which parameters, statistics and outputs are selected and how they are
/// shown, where results go, the height unit and the preprocessing.
///
/// The defaults of every analysis are described in docs/analysis-defaults.md, the stored form in
/// docs/preferences-file.md. Lists are in the order of their catalogue. Everything that changes the object
/// sets its modified flag; setters answer false for a number that the list does not have, getters throw.
/// Where there is no memory for a change, std::bad_alloc is thrown and the object is what it was, its flag
/// included.
class COMMONUI_API CAnalysisPreferencesData : public CBaseData
{
public:
    /// What the application lets its users choose in this analysis; not stored, and untouched by Reset.
    struct SAllowed {
        bool writeToFile = true;   ///< results may be appended to a result file
        bool writeToDB = true;     ///< results may be appended to the result database
        bool preprocessing = true; ///< the preprocessing may be chosen
        bool reports = false;      ///< there are reports; from the start for the roughness analyses only
        bool plugIns = false;      ///< plug-ins may add parameters; for the roughness analyses only
        bool histograms = false;   ///< parameters have histograms; for the grain analysis only

        bool operator==(const SAllowed& other) const = default;
    };

    /// What of the preferences differs: the kinds of which listeners are told.
    struct SDifferences {
        /// The parameters, and what their values and their choice depend on: the unit, the preprocessing, the
        /// form removal, the MUFU options, the standards, and what the application allows.
        bool parameters = false;
        bool statistics = false; ///< the list of statistics
        /// The outputs, and where results go: to the file, the database, the report and the bar chart.
        bool outputs = false;

        bool operator==(const SDifferences& other) const = default;
    };

    /// Reads one entry of a list: GetParameter, GetStatistic or GetOutput.
    using FGetter = CParameter (CAnalysisPreferencesData::*)(int) const;

    /// Preferences with the defaults of the analysis.
    /// @throws EInternal for a number that is no analysis: "Illegal Analysis value: %d"
    explicit CAnalysisPreferencesData(EAnalysis analysis);
    CAnalysisPreferencesData(const CAnalysisPreferencesData&) = default;
    CAnalysisPreferencesData(CAnalysisPreferencesData&&) noexcept = default;
    CAnalysisPreferencesData& operator=(const CAnalysisPreferencesData&) = default;
    CAnalysisPreferencesData& operator=(CAnalysisPreferencesData&&) noexcept = default;
    ~CAnalysisPreferencesData() override;

    using CBaseData::Load;
    void Init() override;
    /// Writes the preferences to the current section, dynamic parameters to the section named like it and
    /// "_DynamicParameters", and clears the modified flag. Always true: what can fail is saving the file.
    bool Save(CInifile& ini) override;
    /// Reads a section of the layout in which all analyses shared their keys; see docs/preferences-file.md.
    /// The keys may stand in the current section, or, if that is named "name_GetININame" and has none of
    /// them, in the section of the name. What is not found keeps its value.
    /// @return whether there was any such key
    virtual bool LoadOld(CInifile& ini);
    /// One group with what the getter answers for every parameter; it must know all their numbers.
    /// @param all false leaves out dynamic parameters (with a parent) and templates (with variables)
    virtual std::vector<SParameterGroup> GetGroups(FGetter getter, bool all) const;
    /// A copy of the object's own class, with all that it holds, the modified flag included.
    virtual std::unique_ptr<CAnalysisPreferencesData> Clone() const;
    /// The parameters in the groups of GetGroups.
    virtual std::vector<SParameterGroup> GetParameterGroups(bool all) const;
    /// All statistics in one group.
    virtual std::vector<SParameterGroup> GetStatisticGroups() const;
    /// All outputs in one group.
    virtual std::vector<SParameterGroup> GetOutputGroups() const;
    /// In spite of its name the next number that is free for a parameter: one more than the largest one in
    /// use, at least 1; the least one that is free where no number is larger.
    virtual int FindParameterMaxValue() const;
    /// Adds a copy of a plug-in's parameter under a new number, as a dynamic parameter of the plug-ins'
    /// entry.
    /// @return the new number
    virtual int AddParameter(int parent, const CParameter& parameter);
    /// Replaces all parameters.
    virtual bool SetParameters(const std::vector<CParameter>& parameters);
    /// Reads what Save wrote from the current section, or, if that has no key "WriteToFile", what LoadOld
    /// finds. What the section does not say keeps its value, and what cannot be read, too, with a line in the
    /// diagnostics; dynamic parameters are always replaced. Clears the modified flag, unless the old layout
    /// was read: that has to be saved in the new one.
    virtual bool Load(CInifile& ini);
    /// Takes over the preferences of another object of the same analysis; the object stays of its own class,
    /// whose own preferences change only if the other object has them.
    /// @return false, and nothing changes, when it belongs to another analysis
    virtual bool Assign(const CAnalysisPreferencesData& other);
    /// What Assign would change, of another object of the same analysis. Nothing differs between an object
    /// and its clone.
    virtual SDifferences Compare(const CAnalysisPreferencesData& other) const;

    /// The analysis of the constructor; Assign never changes it.
    EAnalysis GetAnalysis() const noexcept { return m_analysis; }
    /// Compares the analysis only.
    bool operator==(EAnalysis analysis) const noexcept { return m_analysis == analysis; }
    /// The name of the analysis in the names of its sections, and the name that users see.
    /// @throws EInternal for a number that is no analysis: "Illegal Analysis value: %d"
    static CStr GetININame(EAnalysis analysis);
    /// The name that users see, in the language of the string table; throws as GetININame does.
    static CStr GetFriendlyName(EAnalysis analysis);
    /// The same of the object's own analysis.
    CStr GetININame() const { return GetININame(m_analysis); }
    /// The same of the object's own analysis.
    CStr GetFriendlyName() const { return GetFriendlyName(m_analysis); }

    /// The first entry of that number.
    /// @throws EInternal when there is none: "Illegal Parameter ID: %d", "Illegal m_Statistic ID: %d",
    ///     "Illegal Output ID: %d"
    CParameter GetParameter(int id) const;
    /// The first statistic of that number, throwing as GetParameter does.
    CParameter GetStatistic(int id) const;
    /// The first output of that number, throwing as GetParameter does.
    CParameter GetOutput(int id) const;
    /// All parameters, on or off, dynamic ones included, as copies.
    std::vector<CParameter> GetParameters() const { return m_parameters; }
    /// All statistics, on or off, as copies.
    std::vector<CParameter> GetStatistics() const { return m_statistics; }
    /// All outputs, on or off, as copies.
    std::vector<CParameter> GetOutputs() const { return m_outputs; }
    /// Whether the parameter is on; false also when the list does not have it.
    bool IsParameterOn(int id) const;
    /// The numbers of all parameters, on or off.
    std::vector<int> GetParameterIDs() const;
    /// The numbers of all statistics, on or off.
    std::vector<int> GetStatisticIDs() const;
    /// The numbers of all outputs, on or off.
    std::vector<int> GetOutputIDs() const;

    /// Replaces the first parameter of that number, or appends when there is none. Always true.
    bool SetParameter(int id, const CParameter& parameter);
    /// Replaces the first statistic of that number. @return false, and nothing changes, when there is none
    bool SetStatistic(int id, const CParameter& statistic);
    /// Replaces the first output of that number. @return false, and nothing changes, when there is none
    bool SetOutput(int id, const CParameter& output);
    /// Switches a parameter; a template stays off. @return whether the list has it
    bool SetParameterOn(int id, bool on);
    /// Switches a statistic. @return whether the list has it
    bool SetStatsOn(int id, bool on);
    /// Switches an output. @return whether the list has it
    bool SetOutputOn(int id, bool on);
    /// Replaces the entry of each element's own number.
    /// @return false when there was none for one of them; the others are replaced all the same
    bool SetStatistics(const std::vector<CParameter>& statistics);
    /// As SetStatistics, of the outputs.
    bool SetOutputs(const std::vector<CParameter>& outputs);

    /// Whether results are appended to the result file; stored.
    bool GetWriteToFile() const noexcept { return m_writeToFile; }
    /// Changes GetWriteToFile; whether the application allows it is not asked.
    void SetWriteToFile(bool write);
    /// Whether results are appended to the result database; stored.
    bool GetWriteToDB() const noexcept { return m_writeToDB; }
    /// Changes GetWriteToDB; whether the application allows it is not asked.
    void SetWriteToDB(bool write);
    /// The unit in which heights are shown where no parameter says otherwise.
    const CUnit& GetUnit() const noexcept { return m_unit; }
    /// Changes the unit of GetUnit; parameters keep the unit factors that they have.
    void SetUnit(const CUnit& unit);
    /// What is done to a surface before the analysis evaluates it.
    ERoughnessPreprocessingOptions GetPreprocessingOption() const noexcept { return m_preprocessing; }
    /// @param number of an ERoughnessPreprocessingOptions
    /// @return false, and nothing changes, when there is no such option
    bool SetPreprocessingNo(int number);
    /// What the application lets its users choose.
    const SAllowed& GetAllowed() const noexcept { return m_allowed; }
    /// Replaces all of GetAllowed; dialogs leave out what is not allowed, while its choices stay stored.
    void SetAllowed(const SAllowed& allowed);
    /// Whether parameters of the standard are offered: what the map says, true where it says nothing.
    bool IsStandardEnabled(EAnalysisStandards standard) const;
    /// Not stored, and untouched by Reset.
    void SetEnabledStandards(const std::map<EAnalysisStandards, bool>& enabled);

    /// The stored form of a list of parameters: see SaveParameterList and LoadParameterList.
    static void SaveParameters(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis);
    /// Reads what SaveParameters wrote from the current section.
    static void LoadParameters(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis);
    /// The stored forms of statistics ("Mean_S_On", "Mean_S_Value") and outputs ("AbbottCurve_O_On"). What
    /// the section does not say keeps its value.
    static void SaveStatistics(const std::vector<CParameter>& statistics, CInifile& ini);
    /// Reads what SaveStatistics wrote from the current section.
    static void LoadStatistics(std::vector<CParameter>& statistics, const CInifile& ini);
    /// Writes the outputs to the current section.
    static void SaveOutput(const std::vector<CParameter>& outputs, CInifile& ini);
    /// Reads what SaveOutput wrote; what the section does not say keeps its value.
    static void LoadOutput(std::vector<CParameter>& outputs, const CInifile& ini);

protected:
    /// For derived classes, which set the modified flag themselves. Numbers are changed only before the next
    /// call of another function.
    std::vector<CParameter>& EditParameters() noexcept
    {
        m_places.Forget();
        return m_parameters;
    }
    /// The list of parameters itself, without a copy.
    const std::vector<CParameter>& ViewParameters() const noexcept { return m_parameters; }
    /// The list of statistics itself, without a copy.
    const std::vector<CParameter>& ViewStatistics() const noexcept { return m_statistics; }
    /// The list of outputs itself, without a copy.
    const std::vector<CParameter>& ViewOutputs() const noexcept { return m_outputs; }

private:
    struct SStored;

    // Sets the modified flag when there was a change, and answers whether there was.
    bool Changed(bool changed) noexcept;
    // The first parameter of that number, or null.
    const CParameter* FindParameter(int id) const noexcept;

    EAnalysis m_analysis;
    bool m_writeToFile = false;
    bool m_writeToDB = false;
    CUnit m_unit;
    ERoughnessPreprocessingOptions m_preprocessing = ERoughnessPreprocessingOptions::None;
    std::vector<CParameter> m_parameters;
    mutable Detail::CParameterPlaces m_places; // of m_parameters
    std::vector<CParameter> m_statistics;
    std::vector<CParameter> m_outputs;
    SAllowed m_allowed;
    std::map<EAnalysisStandards, bool> m_enabledStandards;
};

} // namespace CommonUI
