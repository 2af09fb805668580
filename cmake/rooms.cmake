# A room is one static library. It links just the rooms below it, so that a call upwards does not
# link; tests/house_rules holds the includes to the same order.
# The first room that knows SQL compiles the precompiled header that all above it use.
function(jxc_room name)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp"
         "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h" "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.qrc")
    add_library(jxc_${name} STATIC ${sources})
    target_include_directories(jxc_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(jxc_${name} PUBLIC ${ARG_LINKS})
    jxc_precompile(jxc_${name})
endfunction()

# The windows of a room, in its folder forms/: a second library that stands on ui/.
function(jxc_forms name)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/forms/*.cpp"
         "${CMAKE_CURRENT_SOURCE_DIR}/${name}/forms/*.h")
    add_library(jxc_${name}_forms STATIC ${sources})
    target_include_directories(jxc_${name}_forms PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(jxc_${name}_forms PUBLIC jxc_ui ${ARG_LINKS})
    target_precompile_headers(jxc_${name}_forms REUSE_FROM jxc_ui)
endfunction()

function(jxc_precompile target)
    if(target STREQUAL jxc_base)
        target_precompile_headers(${target} PRIVATE ${JXC_PCH_TEXT})
    elseif(target STREQUAL jxc_sheets)
        target_precompile_headers(${target} REUSE_FROM jxc_base)
    elseif(target STREQUAL jxc_db)
        target_precompile_headers(${target} PRIVATE ${JXC_PCH_TEXT} ${JXC_PCH_SQL})
    elseif(target STREQUAL jxc_ui)
        target_precompile_headers(${target} PRIVATE ${JXC_PCH_TEXT} ${JXC_PCH_SQL} ${JXC_PCH_WINDOWS})
    elseif(target STREQUAL jxc_app)
        target_precompile_headers(${target} REUSE_FROM jxc_ui)
    else()
        target_precompile_headers(${target} REUSE_FROM jxc_db)
    endif()
endfunction()
