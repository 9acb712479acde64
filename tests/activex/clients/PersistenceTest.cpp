#include "apps/vmhost/FormFile.h"
#include "tests/activex/support/ComponentRows.h"

namespace velmora::vmhost {
namespace {

class Persistence : public ClientTest {
protected:
    std::vector<std::string> Faces() const {
        std::vector<std::string> faces;
        for (const ComPtr<ControlSite>& site : form->Sites()) {
            faces.push_back(FaceOf(site->Control(), kClasses[faces.size()].rows));
        }
        return faces;
    }
};

/// Nothing is left at its default that a container may save.
TEST_F(Persistence, FormsGoThroughFilesByEveryInterface) {
    for (const PublishedClass& published : kClasses) {
        ControlSite& site = Add(published.name, "Changed", kCalendarPlace);
        for (const PropertyRow& row : published.rows) {
            const Value value = ValueOf(row, row.Changed());
            EXPECT_TRUE(PutProperty(site.Control(), row.name, value).Succeeded()) << row.name;
        }
    }
    const std::vector<std::string> faces = Faces();
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = folder + std::to_wstring(GetCurrentProcessId()) + L"-form.vmform";
    for (const Medium medium : {Medium::Stream, Medium::Storage, Medium::Bag, Medium::Stream}) {
        SaveForm(*form.Get(), path, medium);
        LoadForm(*form.Get(), path);
        ASSERT_EQ(form->Sites().size(), std::size(kClasses));
        EXPECT_EQ(Faces(), faces) << static_cast<int>(medium);
        EXPECT_TRUE(EqualRect(&form->Sites()[0]->Place(), &kCalendarPlace));
    }
    DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace velmora::vmhost
