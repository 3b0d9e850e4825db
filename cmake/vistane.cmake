# One module: a static library of every source in the calling folder, its headers included by bare name.
#   vistane_module(NAME [LIBRARY...])   the libraries that its headers or sources use
function(vistane_module name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()

# One test program of the calling folder's sources, run on a session bus of its own with no real display.
#   vistane_test(NAME SOURCES file... LIBRARIES library... [NO_BUS])
# Each test case becomes a ctest of its own, named NAME.Suite.Case.
function(vistane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "NO_BUS" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE vistane_testing ${arg_LIBRARIES})
    if(NOT arg_NO_BUS)
        set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR "${PROJECT_SOURCE_DIR}/tests/on-private-bus")
    endif()
    gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
