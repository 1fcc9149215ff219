#include "ravelin/platform/AfxMessageBox.h"

#include <cstdio>
#include <utility>

namespace ravelin {

namespace {

int WriteToStandardError(const char* text, unsigned, unsigned) {
    std::fprintf(stderr, "%s\n", text);
    return IDOK;
}

AfxMessageBoxHandler& InstalledHandler() {
    static AfxMessageBoxHandler handler = WriteToStandardError;
    return handler;
}

}  // namespace

AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler) {
    if (!handler) {
        handler = WriteToStandardError;
    }
    return std::exchange(InstalledHandler(), std::move(handler));
}

int AfxMessageBox(const char* text, unsigned type, unsigned helpId) {
    return InstalledHandler()(text, type, helpId);
}

}  // namespace ravelin
