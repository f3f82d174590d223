#include "support/ArchiveRoundTrip.h"

#include <sstream>

Bytes StoreBytes(const std::function<void(CArchive&)>& write) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        write(ar);
        ar.Close();
    }
    Bytes bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

std::size_t LoadBytes(const Bytes& bytes, const std::function<void(CArchive&)>& read) {
    Bytes copy = bytes;
    CMemFile file(copy.data(), static_cast<UINT>(copy.size()));
    CArchive ar(&file, CArchive::load);
    read(ar);
    std::size_t left = 0;
    BYTE rest[256];
    for (UINT got; (got = ar.Read(rest, sizeof rest)) > 0;)
        left += got;
    ar.Close();
    return left;
}

int ArchiveCause(const std::function<void()>& run) {
    try {
        run();
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    } catch (CException* e) {
        e->Delete();
        return -2;
    }
    return -1;
}

int LoadCause(const Bytes& bytes, const std::function<void(CArchive&)>& read) {
    return ArchiveCause([&] { LoadBytes(bytes, read); });
}

Bytes Hex(const std::string& text) {
    Bytes bytes;
    std::istringstream in(text);
    std::string item;
    while (in >> item)
        bytes.push_back(static_cast<BYTE>(std::stoul(item, nullptr, 16)));
    return bytes;
}
