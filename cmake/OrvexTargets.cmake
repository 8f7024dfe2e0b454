# The one place for the flags of our own targets, and the functions that make those targets.

option(ORVEX_SANITIZE "Build with the address, leak and undefined behaviour sanitizers" OFF)
option(ORVEX_WERROR "Take warnings as errors; a later compiler may have more of them" OFF)
option(ORVEX_PACKAGE "Prepare what cpack makes the Debian package of" OFF)
option(ORVEX_ARCHIVE "Prepare what cpack makes the archive for any Linux of" OFF)
option(ORVEX_FUZZ "Build for the fuzzers of fuzz/, with clang and its sanitizers" OFF)

add_library(orvex_flags INTERFACE)
target_compile_options(orvex_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wmissing-declarations
  $<$<BOOL:${ORVEX_WERROR}>:-Werror>)
# The same numbers on all processors: no multiplication and addition in one rounding.
target_compile_options(orvex_flags INTERFACE -ffp-contract=off)
# GCC 12 warns wrongly inside the inline allocation code of libstdc++ and Boost.
target_compile_options(orvex_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)

if(ORVEX_FUZZ)
  target_compile_options(orvex_flags INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  target_link_options(orvex_flags INTERFACE -fsanitize=address,undefined)
elseif(ORVEX_SANITIZE)
  target_compile_options(orvex_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
    # This check needs type information that GoogleMock's library does not have.
    -fno-sanitize=vptr)
  target_link_options(orvex_flags INTERFACE -fsanitize=address,undefined)
else()
  # The flags of Debian's own programs: checked C functions, stack protector, full RELRO (and PIE).
  target_compile_options(orvex_flags INTERFACE
    -fstack-protector-strong $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
  target_link_options(orvex_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()

# A large tree takes some forty million allocations. mimalloc needs three quarters of the time and
# nine tenths of the memory of libc's allocator for them. Its operator new ends the program where
# memory is refused; ours throws. The sanitizers have their own allocator.
add_library(orvex_allocator INTERFACE)
if(NOT ORVEX_SANITIZE AND NOT ORVEX_FUZZ)
  find_package(mimalloc REQUIRED)
  target_sources(orvex_allocator INTERFACE $<TARGET_OBJECTS:orvex_operator_new>)
  target_link_libraries(orvex_allocator INTERFACE mimalloc)
endif()

# orvex_add_layer(NAME [SOURCES ...] [LINKS ...] [PRIVATE_LINKS ...]): the library of a folder of
# src/: static, or headers alone where it has no sources.
function(orvex_add_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  if(NOT ARG_SOURCES)
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ARG_LINKS})
    return()
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE orvex_flags ${ARG_PRIVATE_LINKS})
endfunction()

# orvex_add_program(NAME [INSTALLED] SOURCES ... LINKS ...): an executable with our flags. One that is
# installed stands in the list ORVEX_PROGRAMS, and has a manual in packaging/man.
function(orvex_add_program name)
  cmake_parse_arguments(ARG "INSTALLED" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE orvex_flags ${ARG_LINKS})
  if(ARG_INSTALLED)
    set_property(GLOBAL APPEND PROPERTY ORVEX_PROGRAMS ${name})
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endfunction()
