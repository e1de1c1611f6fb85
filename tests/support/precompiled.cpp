// SPDX-License-Identifier: MIT
//
// Compiles the headers that every test program shares, once.

#include <gtest/gtest.h>
