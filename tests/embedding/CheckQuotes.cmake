# What the documents quote is what stands in the files.
function(quotes document)
  file(READ ${SOURCE}/${document} page)
  foreach(quoted ${ARGN})
    file(READ ${SOURCE}/${quoted} text)
    string(FIND "${page}" "\n${text}```\n" at)
    if(at EQUAL -1)
      message(SEND_ERROR "${document} does not quote ${quoted} as it stands")
    endif()
  endforeach()
endfunction()

quotes(docs/embedding.md examples/embedding/main.cpp examples/embedding/SmallHost.h docs/embedding-output.txt)
quotes(docs/transcripts.md docs/first.transcript)
