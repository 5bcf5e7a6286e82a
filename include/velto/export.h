// SPDX-License-Identifier: Apache-2.0
//
// VELTO_EXPORT marks the classes that a program may use from a shared library of the four tools.

#ifndef VELTO_EXPORT_H
#define VELTO_EXPORT_H

#if defined(_WIN32)
#define VELTO_EXPORT
#else
#define VELTO_EXPORT __attribute__((visibility("default")))
#endif

#endif  // VELTO_EXPORT_H
