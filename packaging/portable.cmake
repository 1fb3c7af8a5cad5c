# The component "portable": one folder with everything in it, to be unpacked anywhere. On Windows it is the only layout.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the mask of who builds
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
file(GLOB option_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/examples/PLC*.810)

# Guide, file formats and examples, into a folder.
function(brindle_install_documents component folder)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples DESTINATION ${folder} ${component})
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${folder} ${component}
    FILES_MATCHING PATTERN guide/README.md PATTERN "*.png" PATTERN "*-file.md" PATTERN logic-json.md)
endfunction()

set(portable COMPONENT portable EXCLUDE_FROM_ALL)
install(TARGETS brindle brindle-cli DESTINATION . ${portable})
install(FILES ${option_files} DESTINATION . ${portable}) # beside the programs, where they look for them
brindle_install_documents("${portable}" documents)
string(TOLOWER ${CMAKE_SYSTEM_NAME} system_name)
include(${CMAKE_CURRENT_LIST_DIR}/${system_name}/package.cmake)
