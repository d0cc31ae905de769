# What every library and program of this project has in common.

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

# A shared library that exports what its map file lists, and finds its neighbours in whatever directory it is put.
function(velk_shared_library target exports)
  velk_compile_options(${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    INSTALL_RPATH "$ORIGIN"
    LINK_DEPENDS ${exports})
  target_link_options(${target} PRIVATE -Wl,--version-script=${exports})
endfunction()
