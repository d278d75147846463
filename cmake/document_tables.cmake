# Makes the tables of the documents out of the component's own; see tools/docs_tables.sh.
if(NOT WIN32)
  tillora_sources(sources FOLDERS tools/document_tables)
  tillora_program(document_tables SOURCES ${sources} LINK tillora_core)
endif()
