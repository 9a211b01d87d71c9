// The module's start-up in a host, and what its resources are taken from.
// SPDX-License-Identifier: MIT
#include <mutex>

#include <contracts/DefaultTexts.h>
#include <contracts/LanguageModule.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo {
namespace {

struct ModuleState {
    std::mutex mutex;
    AFX_EXTENSION_MODULE record;
    int referenceCount = 0;
    HINSTANCE own = nullptr;
    HINSTANCE language = nullptr;
    int languageCode = 0;
};

ModuleState& State() {
    static ModuleState state;
    return state;
}

std::string OwnText(unsigned number) {
    std::string utf8;
    OrvoShareRecord().resource->FindString(number, utf8);
    return utf8;
}

void LoadLanguage(ModuleState& state) {
    CString directory;
    GetOrvoLangDllDirectory(directory);
    CString path;
    path.Format("%s\\%s", static_cast<const char*>(directory), "ORVOSHARELANG.DLL");
    int code = 0;
    state.language = CmnLoadLanguageModule(path, state.own, &code);
    state.languageCode = code;
    ShownDefaults() = OwnText;
}

void FreeLanguage(ModuleState& state) {
    ShownDefaults() = nullptr;
    if (CmnFreeLanguageModule(state.language, state.own) != 0) state.language = state.own;
}

int Attach(ModuleState& state, HINSTANCE instance) {
    if (state.referenceCount == 0) {
        state.own = instance;
        LoadLanguage(state);
    }
    ++state.referenceCount;
    if (AfxInitExtensionModule(state.record, state.language) == 0) {
        if (--state.referenceCount == 0) FreeLanguage(state);
        return 0;
    }
    new CDynLinkLibrary(state.record, 0);  // the framework's own
    return 1;
}

void Detach(ModuleState& state) {
    if (state.referenceCount == 0) return;
    AfxTermExtensionModule(state.record, 0);
    if (--state.referenceCount == 0) FreeLanguage(state);
}

// Holds the state, attached.
class AttachedState {
public:
    AttachedState() : m_lock(State().mutex) {
        if (State().referenceCount == 0) Attach(State(), OwnModule());
    }
    ModuleState* operator->() const { return &State(); }

private:
    std::lock_guard<std::mutex> m_lock;
};

}  // namespace

int OrvoShareMain(HINSTANCE instance, unsigned reason) {
    const std::lock_guard lock(State().mutex);
    if (reason == DLL_PROCESS_ATTACH) return Attach(State(), instance);
    if (reason == DLL_PROCESS_DETACH) Detach(State());
    return 1;
}

AFX_EXTENSION_MODULE OrvoShareRecord() {
    return AttachedState()->record;
}

int OrvoShareReferenceCount() {
    const std::lock_guard lock(State().mutex);
    return State().referenceCount;
}

int OrvoShareLanguageCode() {
    return AttachedState()->languageCode;
}

void InitOrvoShareDLL() {
    new CDynLinkLibrary(AttachedState()->record, 0);  // the framework's own
}

CString OrvoShareText(unsigned number) {
    const CDllResourceHandler resources(OrvoShareRecord());
    CString text;
    text.LoadString(number);
    return text;
}

}  // namespace orvo
