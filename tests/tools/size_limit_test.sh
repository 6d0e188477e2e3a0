#!/usr/bin/env bash
# Every command reads files up to a limit, and no more octets than it, whatever the file is.
#     size_limit_test.sh QVLMMS FIXTURES
set -uo pipefail
qvlmms=$(realpath "$1")
fixtures=$(realpath "$2")
source "$(dirname "$0")/../support/script.sh"
cd "$work"
failed=0

declare -A last=([extract]=out [render]=out [html]='-o out.html' [rewrite]=out.mms) # arguments after FILE
commands=(check 'check --json' list 'list --json' html show 'show --json' 'show --jobs 2' smil 'smil --model' extract render rewrite)

expect() { # CODE ERROR COMMAND...: without waiting for the end of an endless input
  local code=$1 error=$2 actual=0
  shift 2
  timeout 60 "$@" >printed 2>error || actual=$?
  [ "$actual" -eq "$code" ] && grep -qxF -- "$error" error \
    || { echo "$*: exit code $actual instead of $code, $(cat error)"; failed=1; }
}

# The size is 4 GiB and that of a message: read as a number of 32 bits, it is a message.
cp "$fixtures/messages/related.mms" sparse
truncate -s $((4 * 1024 * 1024 * 1024 + $(stat -c %s sparse))) sparse
mkfifo fifo
for command in "${commands[@]}"; do
  after=${last[$command]-}
  for file in sparse /dev/zero; do
    # shellcheck disable=SC2086
    expect 2 "qvlmms: cannot read $file: it has more than 64M octets; set a higher limit with --max-size" \
      "$qvlmms" $command $file $after
    # shellcheck disable=SC2086
    expect 2 'qvlmms: cannot read standard input: it has more than 1M octets; set a higher limit with --max-size' \
      "$qvlmms" $command --max-size 1M - $after <$file
  done
  { cat /dev/zero >fifo 2>/dev/null || true; } &
  # shellcheck disable=SC2086
  expect 2 'qvlmms: cannot read fifo: it has more than 1k octets; set a higher limit with --max-size' \
    "$qvlmms" $command --max-size 1k fifo $after
  wait
done

# A message of exactly the limit is read.
size=$(stat -c %s "$fixtures/messages/related.mms")
"$qvlmms" show --max-size "$size" "$fixtures/messages/related.mms" >/dev/null || { echo "the limit is too low"; failed=1; }
expect 2 "qvlmms: cannot read related.mms: it has more than $((size - 1)) octets; set a higher limit with --max-size" \
  env --chdir="$fixtures/messages" "$qvlmms" show --max-size $((size - 1)) related.mms

for command in check list html show smil extract render rewrite; do
  for value in 0 -1 2G 1.5M 64MB M 99999999999 ''; do
    expect 2 "qvlmms: --max-size $value: a size from 1 to 1G such as 100M is expected" \
      "$qvlmms" $command "--max-size=$value" /dev/null ${last[$command]-}
  done
done

# Composing reads no more of a file than a message may have.
for option in --attach --text-file --image; do
  for file in sparse /dev/zero; do
    expect 1 "qvlmms: the message with $file has more than the limit of 307200 octets (300 KB); send less, or set a higher limit with --max-size" \
      "$qvlmms" compose -o out.mms --to 1 --slide $option $file
  done
done
exit "$failed"
