# The compiled help file, from the reference, the guide and the help contexts of the IDL.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

file(GLOB_RECURSE HELP_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/interface/*.idl
  ${PROJECT_SOURCE_DIR}/interface/*.def ${PROJECT_SOURCE_DIR}/interface/help/*.md ${PROJECT_SOURCE_DIR}/docs/guide/*.md
  ${PROJECT_SOURCE_DIR}/docs/*.png ${PROJECT_SOURCE_DIR}/tools/reference/*.py)
set(VELMOSAV_HELP_FILE ${PROJECT_BINARY_DIR}/help/VelmoSAV_DLL14.chm CACHE INTERNAL "The compiled help file")

add_custom_command(
  OUTPUT ${VELMOSAV_HELP_FILE}
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/make_help.py ${PROJECT_SOURCE_DIR} ${VELMOSAV_HELP_FILE}
  DEPENDS ${HELP_SOURCES} ${PROJECT_SOURCE_DIR}/tools/make_help.py ${PROJECT_SOURCE_DIR}/src/automation/faults.def
    ${PROJECT_SOURCE_DIR}/tests/atomicity/methods.def
  COMMENT "Compiling the help file"
  VERBATIM)
add_custom_target(help_file ALL DEPENDS ${VELMOSAV_HELP_FILE})
