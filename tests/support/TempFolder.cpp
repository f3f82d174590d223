#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orv-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        std::abort();
    m_path = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempFolder::Folder(const std::string& relative) const {
    std::filesystem::create_directories(File(relative));
    return File(relative) + "/";
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteFileBytes(const std::string& path, const std::string& bytes) {
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    if (!parent.empty())
        std::filesystem::create_directories(parent);
    std::ofstream(path, std::ios::binary) << bytes;
}
