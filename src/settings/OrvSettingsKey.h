// OrvSettingsKey: a node of a settings tree. It holds named values and child keys, and one tree
// lives in three homes: its constructor's defaults, the registry, and a document archive.
#pragma once

#include "port/Export.h"

#include <windows.h>

#include "core/OrvBaseObject.h"
#include "mfc/CArray.h"
#include "mfc/CObList.h"
#include "mfc/CPoint.h"
#include "mfc/CRect.h"
#include "mfc/CTime.h"

class OrvLoadTracker;
class OrvSettingsValue;

class ORV_API OrvSettingsKey : public OrvBaseObject {
    DECLARE_SERIAL(OrvSettingsKey)
public:
    // Empty name and path, on HKEY_CURRENT_USER.
    OrvSettingsKey();
    // `path` is the full registry path below the root; a child does not inherit its parent's.
    OrvSettingsKey(CString name, CString path);
    ~OrvSettingsKey() override;

    // 1 unless creating HKEY_LOCAL_MACHINE\Software for writing fails.
    static int GetHasPermissionsToWriteToHKLM();

    // Replaces the root of this key alone (not of its children); answers the previous one.
    HKEY SetKey(HKEY rootKey);
    // Opens (or with `create`, creates) the key's path under its root, for reading only when
    // `readOnly` is set. 0 on failure; the caller closes the handle.
    HKEY GetHandleToKey(int create, int readOnly);

    // Each adds a value of the class that fits the argument at the head of the list.
    void AddValue(CString name, int data);
    void AddValue(CString name, unsigned long data);
    void AddValue(CString name, DWORD data); // a COLORREF, as unsigned long is on Windows
    void AddValue(CString name, double data);
    void AddValue(CString name, long double data);
    void AddValue(CString name, CString data);
    void AddValue(CString name, CPoint data);
    void AddValue(CString name, CRect data);
    void AddValue(CString name, CTime data);
    void AddValue(CString name, const CArray<int, int>& data);
    // Adds a child at the head; the key takes ownership of it.
    void AddKey(OrvSettingsKey* key);

    // Finds the value by name anywhere below this key and stores the argument. The value is taken
    // to be of the type the argument implies, without a test; only the array overload checks that
    // the value is an OrvIntArrayValue. A name that isn't found does nothing.
    void SetValue(CString name, int data);
    void SetValue(CString name, unsigned long data);
    void SetValue(CString name, DWORD data);
    void SetValue(CString name, double data);
    void SetValue(CString name, long double data);
    void SetValue(CString name, CString data);
    void SetValue(CString name, CPoint data);
    void SetValue(CString name, CRect data);
    void SetValue(CString name, CTime data);
    void SetValue(CString name, const CArray<int, int>& data);

    // Finds the value by name and fills the argument, which stays as it was when the name isn't
    // found. Same typing rule as SetValue.
    void GetValue(CString name, int& data);
    void GetValue(CString name, unsigned long& data);
    void GetValue(CString name, DWORD& data);
    void GetValue(CString name, double& data);
    void GetValue(CString name, long double& data);
    void GetValue(CString name, CString& data);
    void GetValue(CString name, CPoint& data);
    void GetValue(CString name, CRect& data);
    void GetValue(CString name, CTime& data);
    void GetValue(CString name, CArray<int, int>& data);

    // The child key of that name, searched depth-first below this key; null if there is none.
    OrvSettingsKey* GetKey(CString name);
    OrvSettingsKey* GetSettingsKey(CString name);

    const CString& GetName() const { return m_Name; }
    // The name of a key or a value; empty for any other object.
    CString GetName(OrvBaseObject* child);

    // Deletes every object of the list and empties it.
    void ResetContent(CObList& list);
    // Meets a loaded list with this version's defaults: loaded elements without a default are
    // dropped, defaults without a loaded element move to the head of `loaded`.
    void MergeContents(CObList& loaded, CObList& defaults);

    // Every child in list order; 1 only if every child succeeded, but all are tried.
    virtual int SaveValuesToRegistry();
    virtual int RestoreValuesFromRegistry();

    // The children through the object protocol. Loading merges the archive's children with the
    // defaults this key was built with.
    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;

protected:
    OrvSettingsValue* FindSettingsValue(CString& name);
    OrvSettingsKey* FindSettingsKey(CString& name);
    void DestroyList();

    CString m_Name;
    CString m_Path;
    HKEY m_RootKey = HKEY_CURRENT_USER;
    CObList m_List{10};

private:
    template <class T> void StoreBits(CString& name, const T& data);
    template <class T> void LoadBits(CString& name, T& data);
    void RestoreDefaults(CObList& defaults);
    // Takes the elements of a freshly loaded m_List that the archive made for it; answers false
    // when an element belongs to something else (it is dropped from the list, not deleted).
    bool AdoptLoadedList(OrvLoadTracker& tracker);
};
