# What the editor's Qt for Windows is built with: a cache for `cmake -C`. One static library a module, everything that
# Qt brings along compiled in, nothing that the editor does not use.
set(CMAKE_BUILD_TYPE Release CACHE STRING "")
set(BUILD_SHARED_LIBS OFF CACHE BOOL "")
set(QT_BUILD_EXAMPLES OFF CACHE BOOL "")
set(QT_BUILD_TESTS OFF CACHE BOOL "")
set(QT_QMAKE_TARGET_MKSPEC win32-g++ CACHE STRING "")
# The programs that run while building (moc, rcc) are the host's.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")

set(INPUT_opengl no CACHE STRING "")
set(FEATURE_static_runtime ON CACHE BOOL "")
foreach(feature
    concurrent dbus icu network opengl pkg_config sql sqlmodel tabletevent vulkan xml zstd
    system_doubleconversion system_freetype system_harfbuzz system_jpeg system_libb2 system_pcre2 system_png
    system_zlib
    # The help window shows the guide's own Markdown with Qt's copy of md4c.
    system_textmarkdownreader)
  set(FEATURE_${feature} OFF CACHE BOOL "")
endforeach()
