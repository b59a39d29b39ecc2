#pragma once

// Symbols of the shared library are hidden unless marked; every public class and function carries QX_API.
#define QX_API __attribute__((visibility("default")))
