# Run by cpack between install and packing: gives folders the same permissions whatever the umask is.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE
     OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
