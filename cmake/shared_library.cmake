# What every library and program of this project has in common.

# How the loader names the directory of the file that it loads.
if(APPLE)
  set(VELK_OWN_DIRECTORY @loader_path)
else()
  set(VELK_OWN_DIRECTORY $ORIGIN)
endif()

function(velk_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    $<$<BOOL:${VELK_WARNINGS_AS_ERRORS}>:-Werror>)
  velk_harden(${target})
endfunction()

# What only this kind of linker knows; elsewhere what is hidden is left to the compiler's visibility.
include(CheckLinkerFlag)
if(VELK_CORE_PORTABLE)
  add_compile_definitions(VELK_CORE_PORTABLE)
else()
  check_linker_flag(CXX "-Wl,--version-script=${PROJECT_SOURCE_DIR}/core/exports.map" VELK_HAS_VERSION_SCRIPT)
endif()

# A shared library that exports what its map file lists, and finds its neighbours in whatever directory it is put.
function(velk_shared_library target exports)
  velk_compile_options(${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    INSTALL_RPATH "${VELK_OWN_DIRECTORY}"
    LINK_DEPENDS ${exports})
  if(VELK_HAS_VERSION_SCRIPT)
    target_link_options(${target} PRIVATE -Wl,--version-script=${exports})
  endif()
endfunction()
