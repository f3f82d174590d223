// The process-wide string resource loader.
#include "mfc/StringResources.h"

#include <mutex>

namespace port {
namespace {

std::mutex& LoaderMutex() {
    static std::mutex mutex;
    return mutex;
}

StringResourceLoader& Loader() {
    static StringResourceLoader loader;
    return loader;
}

} // namespace

void SetStringResourceLoader(StringResourceLoader loader) {
    const std::lock_guard lock(LoaderMutex());
    Loader() = std::move(loader);
}

bool LoadStringResource(UINT id, std::wstring& text) {
    text.clear();
    StringResourceLoader loader;
    {
        // Called outside the lock, so that a loader may itself load strings.
        const std::lock_guard lock(LoaderMutex());
        loader = Loader();
    }
    if (!loader)
        return false;
    std::wstring found;
    if (!loader(id, found))
        return false;
    text = std::move(found);
    return true;
}

} // namespace port
