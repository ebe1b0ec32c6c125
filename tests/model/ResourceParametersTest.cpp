#include "model/ResourceParameters.h"

#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "tests/model/PreferencesTesting.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace CommonUI;

namespace
{

// Makes a folder the application's and puts a configuration file there.
class CConfiguredApplication
{
public:
    explicit CConfiguredApplication(const std::string& bytes) { m_folder.Write("VORNConfig.xml", bytes); }

private:
    CTemporaryFolder m_folder;
    CFixedFolders m_folders{m_folder.GetPath(), m_folder.GetPath()};
    CServiceScope<CFolders> m_foldersScope{m_folders};
};

std::string Field(const char* id, const char* name, const char* mark = "<database/>")
{
    return std::string("<field>") + mark + "<identifier>" + id + "</identifier><friendlyname>" + name +
           "</friendlyname></field>";
}

std::string Configuration(const std::string& fields)
{
    return "<?xml version='1.0'?><configuration><fields>" + fields + "</fields></configuration>";
}

} // namespace

TEST(ResourceParameters, NamesOfDatabaseFields)
{
    const CDiagnosticsCapture warnings;
    const CConfiguredApplication application(
        Configuration(Field("Hidden", "no", "") + Field("Sa", "Mean \xC2\xB5") + Field("Sa", "later") +
                      Field("&quot;'", "Quotes")));
    CResourceParameters resources;
    EXPECT_EQ(resources.GetStringByDatabaseID(u"Sa"), u"Mean µ");
    EXPECT_EQ(resources.GetStringByDatabaseID(u"\"'"), u"Quotes");
    for (const char16_t* id : {u"Hidden", u"", u"sa", u"Sa\" or \"\"=\"", u"'"})
        EXPECT_TRUE(resources.GetStringByDatabaseID(id).IsEmpty());
    EXPECT_EQ(warnings.GetCount(), 0);
}

TEST(ResourceParameters, FilesThatCannotBeUsedGiveNoNamesAndOneLine)
{
    const std::string deep(300000, '<');
    for (const std::string& bytes : {std::string(), std::string("<configuration><fields>"), deep,
                                     "<fields>" + Field("Sa", "x") + "</fields>"}) {
        const CDiagnosticsCapture warnings;
        const CConfiguredApplication application(bytes);
        CResourceParameters resources;
        EXPECT_TRUE(resources.GetStringByDatabaseID(u"Sa").IsEmpty());
        EXPECT_TRUE(resources.GetStringByDatabaseID(u"Sq").IsEmpty());
        EXPECT_EQ(warnings.GetCount(), 1);
    }
    const CDiagnosticsCapture warnings;
    CFixedFolders nowhere("no such folder", "");
    const CServiceScope<CFolders> scope(nowhere);
    EXPECT_TRUE(CResourceParameters().GetStringByDatabaseID(u"Sa").IsEmpty());
    EXPECT_EQ(warnings.GetCount(), 1);
}
