# One module: a static library of every source in the calling folder, its headers included by bare name.
#   vistane_module(NAME [LIBRARY...] [HOST LIBRARY...])
# The libraries that its headers or sources use; those of HOST only its sources, so that whoever uses the module does not
# see their headers.
function(vistane_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HOST")
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${arg_UNPARSED_ARGUMENTS} PRIVATE ${arg_HOST})
endfunction()

# One test program, each of its cases a ctest of its own, named NAME.Suite.Case, on a session bus of its own and
# without a real display.
#   vistane_test(NAME SOURCES file... LIBRARIES library... [SCREEN] [TIMEOUT seconds])
# SCREEN: the phone screen is there, too.
function(vistane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "SCREEN" "TIMEOUT" "SOURCES;LIBRARIES")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    add_executable(${name} ${arg_SOURCES})
    # The first main() that the linker finds is the one that counts.
    if(arg_SCREEN)
        target_link_libraries(${name} PRIVATE vistane_screen_testing)
    endif()
    target_link_libraries(${name} PRIVATE vistane_testing ${arg_LIBRARIES})
    set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/on-private-bus)
    gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()
