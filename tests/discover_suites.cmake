# Gives a test program one CTest entry a suite: a start of the program for each of its two thousand
# scenes would cost more than the scenes.
#
#   discover_suites(<target> [PREFIX text] [FILTER gtest filter] [LIST name] [LAUNCHER program]
#                   PROPERTIES ...)
#
# The suites are asked for when the program has been built. A suite of which a scene could not run
# here ends with SkipCode, and is reported as skipped; one that fails does so whatever it skips.
if(CMAKE_SCRIPT_MODE_FILE)
  execute_process(
    COMMAND ${PROGRAM} --gtest_list_tests --gtest_filter=${FILTER}
    OUTPUT_VARIABLE listed
    RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} did not list its tests")
  endif()
  string(REGEX MATCHALL "(^|\n)[A-Za-z_][^ \n]*\\." suites "${listed}")
  set(script "")
  foreach(suite IN LISTS suites)
    string(REGEX REPLACE "^\n|\\.$" "" suite "${suite}")
    string(APPEND script
           "add_test([==[${PREFIX}${suite}]==] ${LAUNCHER} [==[${PROGRAM}]==] [==[--gtest_filter=${suite}.*]==])\n"
           "set_tests_properties([==[${PREFIX}${suite}]==] PROPERTIES ${PROPERTIES})\n")
  endforeach()
  file(WRITE "${SCRIPT}" "${script}")
  return()
endif()

set(discover_suites_script ${CMAKE_CURRENT_LIST_FILE})

function(discover_suites target)
  cmake_parse_arguments(PARSE_ARGV 1 given "" "PREFIX;FILTER;LIST;LAUNCHER" "PROPERTIES")
  if(NOT given_FILTER)
    set(given_FILTER "*")
  endif()
  if(NOT given_LIST)
    set(given_LIST ${target})
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${given_LIST}_suites.cmake)
  set(properties "")
  foreach(property IN LISTS given_PROPERTIES)
    string(APPEND properties " [==[${property}]==]")
  endforeach()
  set(launcher "")
  if(given_LAUNCHER)
    set(launcher "[==[${given_LAUNCHER}]==]")
  endif()
  add_custom_command(
    TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} "-DPROGRAM=$<TARGET_FILE:${target}>" "-DFILTER=${given_FILTER}"
            "-DPREFIX=${given_PREFIX}" "-DLAUNCHER=${launcher}" "-DPROPERTIES=${properties}" "-DSCRIPT=${script}"
            -P ${discover_suites_script}
    BYPRODUCTS ${script}
    VERBATIM)
  # Before the first build there is nothing to ask.
  set(include_script ${CMAKE_CURRENT_BINARY_DIR}/${given_LIST}_include.cmake)
  file(WRITE ${include_script} "include(\"${script}\" OPTIONAL)\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_script})
endfunction()
