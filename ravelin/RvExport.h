#pragma once

// Marks the classes and functions that form the shared library's interface. The library is
// built with hidden visibility, so everything else stays internal to it.
#define RAVELIN_API __attribute__((visibility("default")))
