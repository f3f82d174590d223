// A fresh, empty registry folder for one test: ORV_REGISTRY_DIR points at it while the test runs,
// and gets its previous value back afterwards.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class TempRegistryDir {
public:
    TempRegistryDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "orvreg-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        m_path = pattern;
        if (const char* previous = std::getenv("ORV_REGISTRY_DIR"))
            m_previous = previous;
        setenv("ORV_REGISTRY_DIR", m_path.c_str(), 1);
    }
    ~TempRegistryDir() {
        if (m_previous.empty())
            unsetenv("ORV_REGISTRY_DIR");
        else
            setenv("ORV_REGISTRY_DIR", m_previous.c_str(), 1);
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    TempRegistryDir(const TempRegistryDir&) = delete;
    TempRegistryDir& operator=(const TempRegistryDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
    std::string m_previous;
};

inline std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void WriteFileBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}
