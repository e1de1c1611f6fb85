// SPDX-License-Identifier: MIT
//
// Compiles the headers of libraries that most sources share, once (QuandrelTarget.cmake).
