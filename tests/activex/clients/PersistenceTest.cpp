#include "apps/vmhost/FormFile.h"
#include "tests/activex/support/ComponentRows.h"

namespace velmora::vmhost {
namespace {

constexpr Medium kMedia[] = {Medium::Stream, Medium::Storage, Medium::Bag};

Saved NewPlace(Medium medium) {
    Saved place{medium, nullptr};
    if (medium == Medium::Stream) {
        ComPtr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf());
        place.where = stream;
    } else if (medium == Medium::Storage) {
        ComPtr<IStorage> storage;
        StgCreateDocfile(nullptr,
                         STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_CREATE | STGM_DELETEONRELEASE,
                         0, storage.GetAddressOf());
        place.where = storage;
    } else {
        place.where = Adopt(new TextBag);
    }
    return place;
}

void Rewind(const Saved& place) {
    ComPtr<IStream> stream;
    if (place.medium == Medium::Stream && SUCCEEDED(place.where.As(&stream))) {
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
    }
}

class Persistence : public ClientTest {
protected:
    /// A control with nothing left at its default that a container may save.
    ControlSite& AddChanged(const PublishedClass& published) {
        ControlSite& site = Add(published.name, "Changed", kCalendarPlace);
        for (const PropertyRow& row : published.rows) {
            const Value value = ValueOf(row, row.Changed());
            EXPECT_TRUE(PutProperty(site.Control(), row.name, value).Succeeded()) << row.name;
        }
        return site;
    }
    Saved SaveOf(ControlSite& site, Medium medium) {
        const Saved place = NewPlace(medium);
        SaveControl(*site.Control(), place);
        Rewind(place);
        return place;
    }
};

TEST_F(Persistence, GoesRoundByEveryInterfaceAndCrosswise) {
    for (const PublishedClass& published : kClasses) {
        ControlSite& original = AddChanged(published);
        const std::string face = FaceOf(original.Control(), published.rows);
        for (const Medium first : kMedia) {
            ControlSite& copy =
                Add(published.name, "Copy", kCalendarPlace, SaveOf(original, first));
            for (const Medium second : kMedia) {
                ControlSite& third =
                    Add(published.name, "Third", kCalendarPlace, SaveOf(copy, second));
                EXPECT_EQ(FaceOf(third.Control(), published.rows), face)
                    << published.name << " by " << static_cast<int>(first) << " and "
                    << static_cast<int>(second);
                form->Remove(third);
            }
            form->Remove(copy);
        }
        form->Remove(original);
    }
}

TEST_F(Persistence, FormsGoThroughAFile) {
    for (const Medium medium : kMedia) {
        std::vector<std::string> faces;
        for (const PublishedClass& published : kClasses) {
            faces.push_back(FaceOf(AddChanged(published).Control(), published.rows));
        }
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        const std::wstring path = folder + std::to_wstring(GetCurrentProcessId()) + L"-form.vmform";
        SaveForm(*form.Get(), path, medium);
        LoadForm(*form.Get(), path);
        ASSERT_EQ(form->Sites().size(), std::size(kClasses));
        for (std::size_t i = 0; i < std::size(kClasses); ++i) {
            EXPECT_EQ(FaceOf(form->Sites()[i]->Control(), kClasses[i].rows), faces[i]);
            EXPECT_TRUE(EqualRect(&form->Sites()[i]->Place(), &kCalendarPlace));
        }
        DeleteFileW(path.c_str());
        form->RemoveAll();
    }
}

}  // namespace
}  // namespace velmora::vmhost
