#pragma once

#include <functional>

#include "ravelin/RvExport.h"

namespace ravelin {

/// The answer of a message box whose only button was pressed.
inline constexpr int IDOK = 1;

/// Shows a message to the user: `text` is UTF-8, `type` and `helpId` are passed on as given.
/// Returns the handler's answer.
using AfxMessageBoxHandler = std::function<int(const char* text, unsigned type, unsigned helpId)>;

/// Installs the process-wide handler of AfxMessageBox and returns the one it replaces. An empty
/// handler restores the default, which writes the text to standard error and answers IDOK.
RAVELIN_API AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler);

/// Shows `text` through the installed handler.
RAVELIN_API int AfxMessageBox(const char* text, unsigned type = 0, unsigned helpId = 0);

}  // namespace ravelin
