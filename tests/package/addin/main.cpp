// A tiny add-in built against the installed package with only the package's compile flags. It
// starts the library the way an add-in does, prints where the library found its install tree
// and its language resources, and round-trips a string through an archive in memory.
#include <afx.h>
#include <windows.h>

#include <cstdio>

#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"
#include "frame/OrvShareDll.h"

int main() {
    InitShareDll();
    CKelEnvApp* env = InitAppEnv();
    const CString install = env->GetKelDrive() + env->GetKelPath();
    const CString resources = env->GetKelResourceDllPath();

    CMemFile file;
    {
        CArchive out(&file, CArchive::store);
        out << CString(L"stored by the add-in");
    }
    file.SeekToBegin();
    CString back;
    {
        CArchive in(&file, CArchive::load);
        in >> back;
    }
    std::printf("install %ls\nresources %ls\narchive %ls\n", install.GetString(),
                resources.GetString(), back.GetString());
    CloseAppEnv();
    return 0;
}
