#!/bin/sh
# In the USB test guest: the virtual USB printer plugged in, unplugged and plugged again.
#   setup-gadget.sh start BIN_DIR SPEC [tav-usbgadget options...]
#       starts tav-usbgadget on a FunctionFS function and binds the gadget to dummy_hcd;
#       returns once the host side sees the printer (/dev/usb/lp0 when usblp is loaded)
#   setup-gadget.sh stop      unbinds the gadget and ends tav-usbgadget
#   setup-gadget.sh unbind    pulls the plug: the host loses the device
#   setup-gadget.sh bind      plugs it in again
# TAV_GADGET_LOG names a file for the gadget's report (default: none).
set -u
gadget=/sys/kernel/config/usb_gadget/tav
ffs=/dev/ffs-tav
pidfile=/run/tav-gadget.pid
ready=/run/tav-gadget.ready
controller=dummy_udc.0

wait_for() { # tries a test every 50 ms for up to 10 s
  i=0
  while ! eval "$1"; do
    i=$((i + 1))
    [ $i -ge 200 ] && { echo "setup-gadget: timed out waiting for: $1" >&2; return 1; }
    sleep 0.05
  done
}

host_sees_printer() {
  if grep -q '^usblp ' /proc/modules; then
    [ -c /dev/usb/lp0 ]
  else
    grep -qs 1209 /sys/bus/usb/devices/1-1/idVendor
  fi
}

make_gadget() {
  [ -d $gadget ] && return
  mkdir -p $gadget
  echo 0x1209 > $gadget/idVendor
  echo 0x0001 > $gadget/idProduct
  echo 0x0200 > $gadget/bcdUSB
  mkdir -p $gadget/strings/0x409 $gadget/configs/c.1/strings/0x409 $gadget/functions/ffs.tav
  echo Tavolor > $gadget/strings/0x409/manufacturer
  echo "Virtual USB Printer" > $gadget/strings/0x409/product
  echo TAV0001 > $gadget/strings/0x409/serialnumber
  echo Printer > $gadget/configs/c.1/strings/0x409/configuration
  ln -s $gadget/functions/ffs.tav $gadget/configs/c.1/
  mkdir -p $ffs
  mount -t functionfs tav $ffs
}

unbind() { [ -n "$(cat $gadget/UDC 2>/dev/null)" ] && echo "" > $gadget/UDC; return 0; }
bind() { echo $controller > $gadget/UDC && wait_for host_sees_printer; }

stop() {
  [ -d $gadget ] && unbind
  if [ -f $pidfile ]; then
    pid=$(cat $pidfile)
    kill "$pid" 2>/dev/null
    i=0
    while kill -0 "$pid" 2>/dev/null && [ $i -lt 100 ]; do sleep 0.05; i=$((i + 1)); done
    kill -9 "$pid" 2>/dev/null
    rm -f $pidfile
  fi
  return 0
}

start() {
  bin=$1
  shift
  stop
  make_gadget
  rm -f $ready
  "$bin/tav-usbgadget" --ffs $ffs --ready $ready "$@" 2>>"${TAV_GADGET_LOG:-/dev/null}" &
  echo $! > $pidfile
  wait_for "[ -e $ready ]" && bind
}

command=${1:-}
[ $# -gt 0 ] && shift
case "$command" in
  start) start "$@" ;;
  stop) stop ;;
  unbind) unbind ;;
  bind) bind ;;
  *) echo "usage: setup-gadget.sh start BIN_DIR SPEC [options] | stop | unbind | bind" >&2; exit 2 ;;
esac
