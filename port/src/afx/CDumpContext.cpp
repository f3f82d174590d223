#include "mfc/CDumpContext.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "mfc/CFile.h"
#include "mfc/CObject.h"
#include "port/TextConversion.h"

CDumpContext afxDump;

CDumpContext::CDumpContext(CFile* pFile) : m_pFile(pFile) {}

void CDumpContext::Output(const char* text, std::size_t length) {
    if (m_pFile)
        m_pFile->Write(text, static_cast<UINT>(length));
    else
        std::fwrite(text, 1, length, stderr);
}

CDumpContext& CDumpContext::operator<<(LPCSTR lpsz) {
    if (!lpsz)
        lpsz = "(NULL)";
    Output(lpsz, std::strlen(lpsz));
    return *this;
}

CDumpContext& CDumpContext::operator<<(LPCWSTR lpsz) {
    if (!lpsz)
        return *this << "(NULL)";
    const std::string narrow = port::WideToNarrow(lpsz);
    Output(narrow.data(), narrow.size());
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* lp) {
    char text[24];
    std::snprintf(text, sizeof text, "$%016llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(lp)));
    return *this << text;
}

CDumpContext& CDumpContext::operator<<(const CObject* pOb) {
    if (!pOb)
        return *this << "NULL";
    pOb->Dump(*this);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject& ob) {
    return *this << &ob;
}

CDumpContext& CDumpContext::operator<<(int n) {
    return *this << std::to_string(n).c_str();
}

CDumpContext& CDumpContext::operator<<(UINT u) {
    return *this << std::to_string(u).c_str();
}

CDumpContext& CDumpContext::operator<<(LONGLONG n) {
    return *this << std::to_string(n).c_str();
}

CDumpContext& CDumpContext::operator<<(ULONGLONG n) {
    return *this << std::to_string(n).c_str();
}

CDumpContext& CDumpContext::operator<<(double d) {
    char text[32];
    std::snprintf(text, sizeof text, "%f", d);
    return *this << text;
}

void CDumpContext::Flush() {
    if (m_pFile)
        m_pFile->Flush();
    else
        std::fflush(stderr);
}
