# The C++ examples, built from what the package holds. For MinGW, 32 bits:
#   cmake -S exemples -B build && cmake --build build
cmake_minimum_required(VERSION 3.25)
project(ExemplesVelmoSAV LANGUAGES CXX RC)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
if(NOT CMAKE_SIZEOF_VOID_P EQUAL 4)
  message(FATAL_ERROR "A host of the library is a 32-bit program")
endif()

add_library(velmosav_settings INTERFACE)
target_compile_definitions(velmosav_settings INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
  WINVER=0x0601 _WIN32_WINNT=0x0601)
target_link_options(velmosav_settings INTERFACE -static)
add_library(velmosav_contract INTERFACE)
target_include_directories(velmosav_contract SYSTEM INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/../contrat)

add_subdirectory(premier_appel)
add_subdirectory(sans_enregistrement)
add_subdirectory(galerie)
# Reads JSON with nlohmann-json (in Debian: nlohmann-json3-dev).
find_path(NLOHMANN_JSON_DIR nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
if(NLOHMANN_JSON_DIR)
  add_subdirectory(facturation)
endif()
