# How every folder of src/ becomes a library, and every program is put together.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

find_program(ZV_CCACHE ccache)
if(ZV_CCACHE)
  # Paths below the sources count as relative, so that a fresh clone finds what another one built.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ZV_CCACHE}")
endif()

# Compiler settings of all of the project's own code.
add_library(zv_options INTERFACE)
target_compile_options(zv_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  -Wimplicit-fallthrough -Werror)
target_compile_definitions(zv_options INTERFACE
  ZV_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  ZV_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  ZV_VERSION_REVISION=${PROJECT_VERSION_PATCH}
  QT_NO_KEYWORDS QT_NO_FOREACH)
if(ZV_SANITIZE)
  target_compile_options(zv_options INTERFACE
    -fsanitize=${ZV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zv_options INTERFACE -fsanitize=${ZV_SANITIZE})
endif()

# zv_folder(NAME [ROOMS dirs...] LINK libs...): src/NAME/*.cpp, and those of the rooms inside it,
# are the library zv_NAME, which holds logic and links no Widgets; src/NAME/screens/*.cpp is zv_NAME_screens, which stands on it and on the screens of
# the folders below.
function(zv_folder name)
  cmake_parse_arguments(arg "" "" "LINK;ROOMS" ${ARGN})
  set(sources)
  foreach(room IN LISTS name arg_ROOMS)
    file(GLOB found CONFIGURE_DEPENDS
      "${CMAKE_SOURCE_DIR}/src/${room}/*.cpp" "${CMAKE_SOURCE_DIR}/src/${room}/*.h")
    list(APPEND sources ${found})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    return()
  endif()
  add_library(zv_${name} STATIC ${sources})
  set_target_properties(zv_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(zv_${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(zv_${name} PUBLIC ${arg_LINK} zv_options)

  if(NOT ZV_SCREENS)
    return()
  endif()
  file(GLOB screens CONFIGURE_DEPENDS
    "${CMAKE_SOURCE_DIR}/src/${name}/screens/*.cpp" "${CMAKE_SOURCE_DIR}/src/${name}/screens/*.h")
  if(NOT screens)
    return()
  endif()
  add_library(zv_${name}_screens STATIC ${screens})
  target_link_libraries(zv_${name}_screens PUBLIC zv_${name} Qt6::Widgets Qt6::Svg)
  # Theme and dialogs serve every screen, also above a folder that has none of its own.
  foreach(below IN LISTS arg_LINK ITEMS zv_ui)
    if(TARGET ${below}_screens AND NOT name STREQUAL "ui")
      target_link_libraries(zv_${name}_screens PUBLIC ${below}_screens)
    endif()
  endforeach()
endfunction()

# zv_program(NAME main.cpp libs...): an executable in bin/.
function(zv_program name main)
  add_executable(${name} "${main}")
  target_link_libraries(${name} PRIVATE ${ARGN} zv_options)
endfunction()
