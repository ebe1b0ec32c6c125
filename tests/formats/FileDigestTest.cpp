#include "formats/FileDigest.h"
#include "formats/SurfaceReader.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace CommonUI::Formats;

TEST(FileDigest, IsThatOfEveryByte)
{
    const CTemporaryFolder folder;
    const std::pair<std::string, const char*> cases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {std::string(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    for (const auto& [content, digest] : cases) {
        folder.Write("a", content);
        EXPECT_EQ(ComputeSha256(folder.GetPath() / "a"), HasX3p() ? digest : "");
    }
    if (HasX3p()) {
        EXPECT_THROW(ComputeSha256(folder.GetPath() / "none"), EReadError);
    }
}
