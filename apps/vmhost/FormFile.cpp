#include "apps/vmhost/FormFile.h"

#include "apps/vmhost/HostError.h"
#include "hosts/activex/win32/WinText.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace velmora::vmhost {
namespace {

constexpr DWORD kMode = STGM_SHARE_EXCLUSIVE;
constexpr wchar_t kIndexName[] = L"Form";
constexpr char kHeader[] = "[control] ";

/// One line of the form's index: what must be known before a control can be made.
struct Entry {
    std::string classId;
    RECT place = {};
    Medium medium = Medium::Bag;
    std::string name;
};

std::string LineOf(const ControlSite& site, Medium medium) {
    wchar_t classId[40];
    StringFromGUID2(site.ClassId(), classId, 40);
    std::ostringstream line;
    const RECT& place = site.Place();
    line << ToUtf8(classId) << ' ' << place.left << ' ' << place.top << ' ' << place.right << ' '
         << place.bottom << ' ' << static_cast<int>(medium) << ' ' << site.Name();
    return line.str();
}

Entry EntryOf(const std::string& line) {
    Entry entry;
    int medium = 0;
    std::istringstream text(line);
    text >> entry.classId >> entry.place.left >> entry.place.top >> entry.place.right >>
        entry.place.bottom >> medium >> entry.name;
    if (!text) throw HostError("reading the form", STG_E_DOCFILECORRUPT);
    entry.medium = static_cast<Medium>(medium);
    return entry;
}

std::wstring PartName(std::size_t index) { return L"Control" + std::to_wstring(index); }

Saved CreatePart(IStorage& root, Medium medium, const std::wstring& name) {
    Saved part{medium, nullptr};
    if (medium == Medium::Stream) {
        ComPtr<IStream> stream;
        Check(root.CreateStream(name.c_str(), kMode | STGM_READWRITE | STGM_CREATE, 0, 0,
                                stream.GetAddressOf()),
              "making a stream");
        part.where = stream;
    } else {
        ComPtr<IStorage> storage;
        Check(root.CreateStorage(name.c_str(), kMode | STGM_READWRITE | STGM_CREATE, 0, 0,
                                 storage.GetAddressOf()),
              "making a storage");
        part.where = storage;
    }
    return part;
}

Saved OpenPart(IStorage& root, Medium medium, const std::wstring& name) {
    Saved part{medium, nullptr};
    if (medium == Medium::Stream) {
        ComPtr<IStream> stream;
        Check(root.OpenStream(name.c_str(), nullptr, kMode | STGM_READWRITE, 0,
                              stream.GetAddressOf()),
              "opening a stream");
        part.where = stream;
    } else {
        ComPtr<IStorage> storage;
        Check(root.OpenStorage(name.c_str(), nullptr, kMode | STGM_READWRITE, nullptr, 0,
                               storage.GetAddressOf()),
              "opening a storage");
        part.where = storage;
    }
    return part;
}

void SaveStorage(const Form& form, const std::wstring& path, Medium medium) {
    ComPtr<IStorage> root;
    Check(StgCreateDocfile(path.c_str(), kMode | STGM_READWRITE | STGM_CREATE, 0,
                           root.GetAddressOf()),
          "making the file");
    std::string index;
    for (std::size_t number = 0; number < form.Sites().size(); ++number) {
        const ControlSite& site = *form.Sites()[number].Get();
        SaveControl(*site.Control(), CreatePart(*root.Get(), medium, PartName(number)));
        index += LineOf(site, medium) + '\n';
    }
    ComPtr<IStream> stream;
    Check(root->CreateStream(kIndexName, kMode | STGM_READWRITE | STGM_CREATE, 0, 0,
                             stream.GetAddressOf()),
          "making the index");
    Check(stream->Write(index.data(), static_cast<ULONG>(index.size()), nullptr), "writing");
    Check(root->Commit(STGC_DEFAULT), "saving");
}

void LoadStorage(Form& form, const std::wstring& path) {
    ComPtr<IStorage> root;
    ComPtr<IStream> stream;
    Check(StgOpenStorage(path.c_str(), nullptr, kMode | STGM_READWRITE, nullptr, 0,
                         root.GetAddressOf()),
          "opening the file");
    Check(root->OpenStream(kIndexName, nullptr, kMode | STGM_READ, 0, stream.GetAddressOf()),
          "opening the index");
    STATSTG state{};
    Check(stream->Stat(&state, STATFLAG_NONAME), "reading the index");
    std::string index(static_cast<std::size_t>(state.cbSize.QuadPart), '\0');
    Check(stream->Read(index.data(), static_cast<ULONG>(index.size()), nullptr), "reading");
    std::istringstream lines(index);
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line); ++number) {
        const Entry entry = EntryOf(line);
        form.Add(entry.classId, entry.name, entry.place,
                 OpenPart(*root.Get(), entry.medium, PartName(number)));
    }
}

void SaveText(const Form& form, const std::wstring& path) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    for (const ComPtr<ControlSite>& site : form.Sites()) {
        ComPtr<TextBag> bag;
        bag = Adopt(new TextBag);
        SaveControl(*site->Control(), {Medium::Bag, bag});
        file << kHeader << LineOf(*site.Get(), Medium::Bag) << '\n' << bag->Lines() << '\n';
    }
    if (!file.flush()) throw HostError("writing the file", STG_E_WRITEFAULT);
}

void LoadText(Form& form, const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) throw HostError("opening the file", STG_E_FILENOTFOUND);
    std::string header;
    ComPtr<TextBag> bag;
    const auto add = [&] {
        if (!bag) return;
        const Entry entry = EntryOf(header);
        form.Add(entry.classId, entry.name, entry.place, {Medium::Bag, bag});
    };
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(kHeader)) {
            add();
            header = line.substr(sizeof kHeader - 1);
            bag = Adopt(new TextBag);
        } else if (bag) {
            bag->AddLine(line);
        }
    }
    add();
}

}  // namespace

void SaveForm(const Form& form, const std::wstring& path, Medium medium) {
    medium == Medium::Bag ? SaveText(form, path) : SaveStorage(form, path, medium);
}

void LoadForm(Form& form, const std::wstring& path) {
    form.RemoveAll();
    StgIsStorageFile(path.c_str()) == S_OK ? LoadStorage(form, path) : LoadText(form, path);
}

}  // namespace velmora::vmhost
