# Where a target is built in unity, the sources of a folder are compiled as one: what they include is parsed once,
# which is most of the work of compiling a test. So a name in an unnamed namespace stands once in a folder.
function(brindle_unity_by_folder target)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    get_filename_component(folder ${source} DIRECTORY)
    string(REPLACE "${CMAKE_SOURCE_DIR}/" "" folder "${folder}")
    string(MAKE_C_IDENTIFIER "${folder}" group)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${group}")
    # The header of Windows gives names of ours, such as MessageBox, a meaning of its own.
    if(source MATCHES "_windows(_test)?\\.cpp$")
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()
