# Sets TAVORO_HAS_PYTHON if the Python package can be built: with pybind11, and the development files of Python.
# Not with sanitizers: a plain Python cannot load an instrumented module, since the sanitizer's runtime must be loaded first.
set(TAVORO_HAS_PYTHON OFF)
if(TAVORO_BUILD_PYTHON AND TAVORO_BUILD_TOOLS AND NOT TAVORO_EXTERNAL_COMPANIONS AND NOT TAVORO_SANITIZE)
    # Debian's Python precedes others on the path: it has pytest and mypy, and the Debian package is for it.
    if(NOT DEFINED Python3_ROOT_DIR AND EXISTS /usr/bin/python3)
        set(Python3_ROOT_DIR /usr)
    endif()
    find_package(Python3 3.11 QUIET COMPONENTS Interpreter Development.Module)
    find_package(pybind11 2.10 QUIET)
    if(Python3_FOUND AND pybind11_FOUND)
        set(TAVORO_HAS_PYTHON ON)
        message(STATUS "Python package: for Python ${Python3_VERSION}, with pybind11 ${pybind11_VERSION}")
    else()
        message(STATUS "Python package: not built, since pybind11 or the development files of Python 3.11 are missing")
    endif()
endif()
