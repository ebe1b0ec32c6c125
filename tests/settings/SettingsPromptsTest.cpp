#include "tests/settings/SettingsFactoryTesting.h"
#include "tests/settings/SettingsTesting.h"

using namespace CommonUI;
using enum ESettingType;

namespace
{

// What a dialog does to have its set saved.
struct SSaver {
    bool Fill(CSettings& settings)
    {
        if (other)
            settings = *other;
        settings.WriteInt(u"Value", 7);
        return result;
    }

    bool result = true;
    const CSettings* other = nullptr;
    CClosureConnection connection{};
};

const CStr c_verify = u"\"\n\nPlease verify that the path and file name are correct, and that you have ";

} // namespace

TEST_F(SettingsFactory, FileDialogTextsAreThoseOfTheirPage)
{
    std::string texts;
    for (int type = -1; type <= 19; ++type) {
        CStr open, save, extension, sameExtension;
        if (!m_factory.GetFileDialogInfo(true, ESettingType{type}, open, extension)) {
            EXPECT_TRUE(type < 0 || type > 17 || type == 14 || type == 15);
            EXPECT_FALSE(m_factory.GetFileDialogInfo(false, ESettingType{type}, open, extension));
            continue;
        }
        const bool canSave = m_factory.GetFileDialogInfo(false, ESettingType{type}, save, sameExtension);
        EXPECT_EQ(canSave, ESettingType{type} != ActiveReport);
        EXPECT_TRUE(!canSave || sameExtension == extension);
        texts += "[" + GetSettingTypeEnum().GetIniName(type).ToUtf8() + "]\nextension=" + extension.ToUtf8() +
                 "\nopen=" + open.ToUtf8() + "\nsave=" + save.ToUtf8() + "\n";
    }
    EXPECT_TRUE(Has(ReadPage("settings-factory.md"), "```ini\n" + texts + "```\n")) << texts;
}

TEST_F(SettingsFactory, LoadPrompt)
{
    m_folder.Write("x.pln", "Value=3");
    CSettings set;
    EXPECT_FALSE(m_factory.LoadSettingsPrompt(set, PlaneCorr, u"y.pln", true));
    EXPECT_EQ(m_dialogs.GetShown().back(),
              (SFileDialog{true, u"Plane Correction Settings (*.pln)|*.pln|All Files (*.*)|*.*||", u"",
                           u"Settings_PlaneCorr", Path("Custom Settings/"), u"y.pln"}));
    EXPECT_TRUE(m_boxes.GetShown().empty());

    for (const bool addToRecent : {false, true}) {
        m_dialogs.Prepare(Path("x.pln"));
        EXPECT_TRUE(m_factory.LoadSettingsPrompt(set, PlaneCorr, {}, addToRecent));
        EXPECT_EQ(set.ReadInt(u"Value", 0), 3);
        EXPECT_EQ(Recent(PlaneCorr), addToRecent ? u"Recent{x.pln 200}" : u"");
    }

    m_dialogs.Prepare(Path("none.pln"));
    EXPECT_FALSE(m_factory.LoadSettingsPrompt(set, PlaneCorr, {}, true));
    EXPECT_EQ(m_dialogs.GetShown().back().file, u"x.pln");
    EXPECT_EQ(m_boxes.GetShown().back().text,
              u"Unable to load the file \"" + Path("none.pln") + c_verify + u"Read access to the file.");
    EXPECT_EQ(set.ReadInt(u"Value", 0), 3);
    EXPECT_FALSE(m_factory.LoadSettingsPrompt(set, Unknown, {}, true));
    EXPECT_EQ(m_boxes.GetShown().back().text, u"Settings of the type \"Unknown\" are not kept in files.");
}

TEST_F(SettingsFactory, SavePrompt)
{
    SSaver saver;
    CMultiClosure1<bool, CSettings&> savers;
    savers.Subscribe(saver, &SSaver::Fill, saver.connection);
    CStr path = u"proposed.flt";
    EXPECT_FALSE(m_factory.SaveSettingsPrompt(Filter, path, savers, true));
    EXPECT_EQ(m_dialogs.GetShown().back(),
              (SFileDialog{false, u"Filter files (*.flt)|*.flt||", u"flt", u"Settings_Filter",
                           Path("Custom Settings/"), u"proposed.flt"}));
    EXPECT_TRUE(m_boxes.GetShown().empty());

    // The set of another file is saved to the file chosen.
    const CSettings other(SSettingsEntry(Path("other.flt"), PlaneCorr), {});
    saver.other = &other;
    for (const bool addToRecent : {false, true}) {
        m_dialogs.Prepare(Path("x.flt"));
        EXPECT_TRUE(m_factory.SaveSettingsPrompt(Filter, path, savers, addToRecent));
        EXPECT_EQ(path, Path("x.flt"));
        EXPECT_EQ(m_folder.Read("x.flt"), "Value=7\n");
        EXPECT_EQ(Recent(Filter), addToRecent ? u"Recent{x.flt 200}" : u"");
    }

    m_dialogs.Prepare(Path("none/y.flt"));
    EXPECT_FALSE(m_factory.SaveSettingsPrompt(Filter, path, savers, true));
    EXPECT_EQ(m_boxes.GetShown().back().text,
              u"Unable to save the file \"" + Path("none/y.flt") + c_verify + u"Write access to the file.");
    saver.result = false;
    m_dialogs.Prepare(Path("z.flt"));
    EXPECT_FALSE(m_factory.SaveSettingsPrompt(Filter, path, savers, true));
    EXPECT_EQ(m_boxes.GetShown().back().text,
              u"The settings are not complete. Nothing has been saved to the file \"" + Path("z.flt") +
                  u"\".");
    EXPECT_FALSE(std::filesystem::exists(m_folder.GetPath() / "z.flt"));
    EXPECT_EQ(path, Path("x.flt"));
    EXPECT_FALSE(m_factory.SaveSettingsPrompt(ActiveReport, path, savers, true));
    EXPECT_EQ(m_boxes.GetShown().back().text,
              u"Settings of the type \"ActiveReport\" cannot be saved to a file.");
}
