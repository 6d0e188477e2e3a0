# The fuzz targets and their dictionaries, for the scripts of this folder. Source it in the project's root.

# The targets of a complete build.
mapfile -t all_targets < <(basename -s .cpp fuzz/targets/*.cpp)

# Prints the file, or nothing if the target has none.
dictionary_of() { # TARGET
  case $1 in
  header | message | multipart | output | parts | readable | scanner | window_edit | work) echo fuzz/dictionaries/wsp.dict ;;
  clip | imelody | midi | smil | values) echo "fuzz/dictionaries/$1.dict" ;;
  esac
}
