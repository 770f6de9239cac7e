# The example in README must be the one that is built and run, to the letter.
file(READ ${README} readme)
foreach(file HostWindow.h main.cpp CMakeLists.txt)
  file(READ ${HOST_DIR}/${file} text)
  string(FIND "${readme}" "${text}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "${README} does not hold the text of ${HOST_DIR}/${file}")
  endif()
endforeach()
