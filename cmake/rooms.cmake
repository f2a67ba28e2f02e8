# How rooms, programs and tests are declared: one library for each room of src/, one test program for each
# folder of tests/. A room links only the rooms that it names, so an arrow in the wrong direction does not link.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(tabulon_options INTERFACE)
target_compile_options(tabulon_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# GCC 12 warns of overlaps in std::string's operator+ that cannot be (its bug 105651).
target_compile_options(tabulon_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(TABULON_SANITIZE)
    target_compile_options(tabulon_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                     -fno-omit-frame-pointer -O1)
    target_link_options(tabulon_options INTERFACE -fsanitize=address,undefined)
endif()

# tabulon_room(NAME [ROOMS …] [LIBRARIES …]): the library of the calling folder, from all of its sources.
function(tabulon_room name)
    cmake_parse_arguments(ROOM "" "" "ROOMS;LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(tabulon_${name} STATIC ${sources})
    set_target_properties(tabulon_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(tabulon_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    list(TRANSFORM ROOM_ROOMS PREPEND tabulon_)
    target_link_libraries(tabulon_${name} PUBLIC ${ROOM_ROOMS} PRIVATE tabulon_options PUBLIC ${ROOM_LIBRARIES})
endfunction()

# tabulon_tests(NAME LIBRARIES …): the test program of the calling folder, its cases known to ctest one by one.
function(tabulon_tests name)
    cmake_parse_arguments(TEST "" "" "LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(NOT sources)
        return()
    endif()
    add_executable(test_${name} ${sources})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ${TEST_LIBRARIES} GTest::gmock GTest::gtest GTest::gtest_main
                                               tabulon_options)
    target_compile_definitions(test_${name} PRIVATE TABULON_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                                    TABULON_BUILD_DIR="${CMAKE_BINARY_DIR}")
    gtest_discover_tests(test_${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
endfunction()
