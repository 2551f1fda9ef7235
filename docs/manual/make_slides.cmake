# Slides of TOUR with the pictures below PICTURES into TARGET. What pandoc writes is a presentation to be edited; the type
# of its main part makes it a show that starts by itself.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/parts)
execute_process(COMMAND ${PANDOC} --from=markdown --to=pptx --slide-level=1 --resource-path=${PICTURES}
  -o ${WORK}/tour.pptx ${TOUR} COMMAND_ERROR_IS_FATAL ANY)
file(ARCHIVE_EXTRACT INPUT ${WORK}/tour.pptx DESTINATION ${WORK}/parts)
set(types ${WORK}/parts/[Content_Types].xml)
file(READ "${types}" text)
string(REPLACE "presentationml.presentation.main+xml" "presentationml.slideshow.main+xml" changed "${text}")
if(changed STREQUAL text)
  message(FATAL_ERROR "The slides have no main part whose type could be changed")
endif()
file(WRITE "${types}" "${changed}")
# Readers look for the list of types first.
file(GLOB others RELATIVE ${WORK}/parts LIST_DIRECTORIES true ${WORK}/parts/*)
list(FILTER others EXCLUDE REGEX "Content_Types")
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${TARGET} --format=zip "[Content_Types].xml" ${others}
  WORKING_DIRECTORY ${WORK}/parts COMMAND_ERROR_IS_FATAL ANY)
