option(LANTERN_TESTS "Build the tests" OFF)
option(LANTERN_BENCH "Build the benchmarks" OFF)
option(LANTERN_FUZZ "Build the fuzzers for libFuzzer, which needs Clang" OFF)
option(LANTERN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(LANTERN_MOLD "Link with mold where it is installed" OFF)

add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)

if(LANTERN_MOLD)
    find_program(mold mold)
    if(mold)
        add_link_options(-fuse-ld=mold)
    endif()
endif()

if(LANTERN_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# What stands in an attacker's way, as far as the compiler has it for this processor.
if(NOT LANTERN_SANITIZE)
    include(CheckCXXCompilerFlag)
    set(CMAKE_REQUIRED_FLAGS -Werror) # for those that it merely takes
    foreach(flag IN ITEMS -fstack-protector-strong -fstack-clash-protection
                          -fcf-protection=full -mbranch-protection=standard)
        string(MAKE_C_IDENTIFIER "knows${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            add_compile_options(${flag})
        endif()
    endforeach()
    unset(CMAKE_REQUIRED_FLAGS)
    if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
        add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
    endif()
    add_link_options(-Wl,-z,relro,-z,now)
endif()

if(LANTERN_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Shows the headers of a folder, as "<folder>/<header>", to those alone that link its target.
# lantern_headers(<target>)
function(lantern_headers target)
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    set(seen ${PROJECT_BINARY_DIR}/include/${folder})
    file(MAKE_DIRECTORY ${seen})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${seen}/${folder} SYMBOLIC)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "INTERFACE_LIBRARY")
        target_include_directories(${target} INTERFACE ${seen})
    else()
        target_include_directories(${target} PUBLIC ${seen})
    endif()
endfunction()

# A room of the house: one static library per folder, which may link lower floors only.
# lantern_room(<name> SOURCES <files> LINK <libraries>)
function(lantern_room name)
    cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${room_SOURCES})
    lantern_headers(${name})
    target_link_libraries(${name} PUBLIC ${room_LINK})
endfunction()
