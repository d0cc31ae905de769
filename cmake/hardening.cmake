# What makes a built file harder to take over: for the optimised builds, and for this project's own files alone.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

option(VELK_HARDENING "Harden what the optimised builds make" ON)

# Fortified calls need an optimiser, and the sanitizers bring their own versions of the same calls.
string(FIND "${CMAKE_CXX_FLAGS}" "-fsanitize" velk_sanitized)
set(VELK_HARDENING_COMPILE_OPTIONS)
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "VELK_HAS_${flag}" has_flag)
  check_cxx_compiler_flag(${flag} ${has_flag})
  if(${has_flag})
    list(APPEND VELK_HARDENING_COMPILE_OPTIONS ${flag})
  endif()
endforeach()

if(NOT VELK_CORE_PORTABLE)
  check_linker_flag(CXX -Wl,-z,relro,-z,now,-z,noexecstack VELK_HAS_RELRO)
endif()

function(velk_harden target)
  if(NOT VELK_HARDENING OR NOT velk_sanitized EQUAL -1)
    return()
  endif()
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(${target} PRIVATE
    "$<${optimised}:${VELK_HARDENING_COMPILE_OPTIONS};-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  if(VELK_HAS_RELRO)
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack)
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    if(VELK_HAS_RELRO)
      target_link_options(${target} PRIVATE -pie)
    endif()
  endif()
endfunction()
