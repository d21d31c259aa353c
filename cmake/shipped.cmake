# What the shipped files have in common: a version resource in French, and symbols that know no folder of the build.
set(VERSION_TEMPLATE ${CMAKE_CURRENT_LIST_DIR}/version.rc.in)

# Line numbers for the symbol file that `./sav package` splits off; the code stays the same.
function(keep_lines target)
  target_compile_options(${target} PRIVATE -g1
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
endfunction()

# The properties that the system shows of a file.
function(describe_file target FILE_DESCRIPTION)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(FILE_TYPE VFT_APP)
    set(FILE_NAME ${target}.exe)
  else()
    set(FILE_TYPE VFT_DLL)
    set(FILE_NAME ${target}.dll)
  endif()
  string(REPLACE "." "," FILE_VERSION "${VELMOSAV_VERSION},0")
  configure_file(${VERSION_TEMPLATE} ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
endfunction()
