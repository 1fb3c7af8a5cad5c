# What Windows shows of a program and how it treats it: icon, version, manifest. Nothing on other systems.
if(WIN32)
  enable_language(RC)
  find_program(BRINDLE_ICOTOOL icotool REQUIRED)
  set(BRINDLE_ICON ${CMAKE_BINARY_DIR}/brindle.ico)
  file(GLOB icon_pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/icons/*.png)
  # The small ones as bitmaps, which every part of the system reads; the largest as it is, or it would be 256 KB.
  set(largest_picture ${CMAKE_SOURCE_DIR}/packaging/icons/brindle-256.png)
  set(small_pictures ${icon_pictures})
  list(REMOVE_ITEM small_pictures ${largest_picture})
  add_custom_command(OUTPUT ${BRINDLE_ICON} DEPENDS ${icon_pictures} VERBATIM
    COMMAND ${BRINDLE_ICOTOOL} --create --output=${BRINDLE_ICON} --raw=${largest_picture} ${small_pictures})
  # Two programs show it: one target makes it, so that they do not both at once.
  add_custom_target(brindle_icon DEPENDS ${BRINDLE_ICON})
endif()

function(brindle_windows_resources target description)
  if(WIN32)
    set(BRINDLE_PROGRAM ${target})
    set(BRINDLE_PROGRAM_DESCRIPTION "${description}")
    set(BRINDLE_MANIFEST ${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest)
    set(resources ${CMAKE_BINARY_DIR}/${target}.rc)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
    set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${BRINDLE_ICON};${BRINDLE_MANIFEST}")
    target_sources(${target} PRIVATE ${resources})
    add_dependencies(${target} brindle_icon)
  endif()
endfunction()
