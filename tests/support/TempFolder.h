// A fresh, empty folder for one test or one program, removed with everything in it at the end; and
// whole files read and written as bytes.
#pragma once

#include <string>

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return m_path; }
    // A path inside the folder (nothing is created).
    std::string File(const std::string& name) const { return m_path + "/" + name; }
    // A folder inside, created with its parents; as text with a final '/'.
    std::string Folder(const std::string& relative) const;

private:
    std::string m_path;
};

// The whole file, or nothing when it cannot be read.
std::string ReadFileBytes(const std::string& path);
// Writes the file whole, creating its folder first.
void WriteFileBytes(const std::string& path, const std::string& bytes);
