# What find_package(quandrel) reads: the library, and what it needs in turn.
include(CMakeFindDependencyMacro)
find_dependency(Threads)
find_dependency(ZLIB)
include(${CMAKE_CURRENT_LIST_DIR}/quandrelTargets.cmake)
