// SPDX-License-Identifier: MIT
//
// Compiles once the library headers that most sources share (QuandrelTarget.cmake).
