// Handing an interface to a window, which may belong to another process of the user.
// SPDX-License-Identifier: MIT
#include <cstring>

#include <orvoshare/integration/InterfaceTransfer.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

HRESULT MarshalInterfaceIntoHandle(REFIID id, IUnknown* object, HGLOBAL* block, DWORD* size) {
    ULONG limit = 0;
    HRESULT result =
        CoGetMarshalSizeMax(&limit, id, object, MSHCTX_LOCAL, nullptr, MSHLFLAGS_NORMAL);
    if (result != S_OK) return result;
    const HGLOBAL packed = GlobalAlloc(GMEM_MOVEABLE, limit);
    if (packed == nullptr) return E_OUTOFMEMORY;
    IStream* stream = nullptr;
    result = CreateStreamOnHGlobal(packed, 0, &stream);
    if (result == S_OK) {
        const ComPointer held(stream);
        result =
            CoMarshalInterface(stream, id, object, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG);
    }
    if (result != S_OK) {
        GlobalFree(packed);
        return result;
    }
    *block = packed;
    *size = limit;
    return result;
}

LRESULT SendInterfaceToHwnd(WPARAM wParam, HWND receiver, DWORD tag, HGLOBAL block, DWORD size) {
    // More than the block holds isn't there to be read.
    if (size > GlobalSize(block)) return 0;
    COPYDATASTRUCT data{tag, size, GlobalLock(block)};
    if (data.lpData == nullptr) return 0;
    const LRESULT result = SendMessage(receiver, WM_COPYDATA, wParam, LParamOf(&data));
    GlobalUnlock(block);
    return result;
}

HRESULT GetInterfaceFromCopyData(COPYDATASTRUCT* data, REFIID id, void** object) {
    return GetInterfaceFromMemoryBlock(data->lpData, data->cbData, id, object);
}

HRESULT GetInterfaceFromMemoryBlock(void* bytes, DWORD size, REFIID id, void** object) {
    *object = nullptr;
    if (bytes == nullptr && size != 0) return E_INVALIDARG;
    const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, size);
    if (copy == nullptr) return E_OUTOFMEMORY;
    if (size != 0) std::memcpy(GlobalLock(copy), bytes, size);
    GlobalUnlock(copy);
    IStream* stream = nullptr;
    const HRESULT result = CreateStreamOnHGlobal(copy, 1, &stream);
    if (result != S_OK) {
        GlobalFree(copy);
        return result;
    }
    const ComPointer held(stream);
    return CoUnmarshalInterface(stream, id, object);
}

}  // namespace orvo
