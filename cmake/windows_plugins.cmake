# A static Qt finds no plugin at run time: those that a program starts with on Windows are linked into it. More may be
# named, as the tests do with the one that needs no screen.
function(brindle_windows_plugins target)
  if(WIN32)
    qt_import_plugins(${target} INCLUDE Qt6::QWindowsIntegrationPlugin Qt6::QWindowsVistaStylePlugin ${ARGN})
  endif()
endfunction()
