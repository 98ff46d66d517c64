# Reads CHANGELOG.md: RELEASES becomes its versions in the form of AppStream, RELEASE_DATE the day
# of the version that is built, which must be among them.
set(changelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
file(STRINGS ${changelog} lines)

set(end_of_release "")
foreach(line IN LISTS lines)
    if(line MATCHES "^## \\[([0-9.]+)\\] - ([0-9-]+)$")
        if(CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
            set(RELEASE_DATE ${CMAKE_MATCH_2})
        endif()
        string(APPEND RELEASES "${end_of_release}"
               "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\">\n"
               "      <description>\n        <ul>\n")
        set(end_of_release "        </ul>\n      </description>\n    </release>\n")
    elseif(end_of_release AND line MATCHES "^- (.*)$")
        string(REPLACE "&" "&amp;" note "${CMAKE_MATCH_1}")
        string(REPLACE "<" "&lt;" note "${note}")
        string(APPEND RELEASES "          <li>${note}</li>\n")
    endif()
endforeach()
string(APPEND RELEASES "${end_of_release}")

if(NOT RELEASE_DATE)
    message(FATAL_ERROR "CHANGELOG.md has no version ${PROJECT_VERSION}")
endif()
