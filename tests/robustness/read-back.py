#!/usr/bin/python3
"""Exports every example and golden bundle with both templates and reads each file back whole, by three readers that
know nothing of the exporter: olefile, libgsf's own tool and mppinspect.
  read-back.py BRACKWATER MPPINSPECT TEMPLATE_FOLDER SOURCE_FOLDER"""
import glob
import os
import struct
import subprocess
import sys
import tempfile

import olefile

END_OF_CHAIN, FREE, TABLE, LIST = 0xFFFFFFFE, 0xFFFFFFFF, 0xFFFFFFFD, 0xFFFFFFFC
failures = 0


def expect(condition, text):
    global failures
    if not condition:
        print("FAILED:", text)
        failures += 1


def streams_by_olefile(path):
    """Reads all streams; sizes by name. Any defect that olefile knows of is an exception."""
    sizes = {}
    with olefile.OleFileIO(path, raise_defects=olefile.DEFECT_POTENTIAL) as ole:
        for entry in ole.listdir(streams=True, storages=False):
            content = ole.openstream(entry).read()
            expect(len(content) == ole.get_size(entry), "%s: %r is cut" % (path, entry))
            sizes["/".join(entry)] = len(content)
    return sizes


def sizes_by_library(path):
    """What the library's tool lists and reads. It lists a storage without entries as an empty stream."""
    sizes = {}
    with olefile.OleFileIO(path) as ole:
        storages = {"/".join(entry) for entry in ole.listdir(streams=False, storages=True)}
    listing = subprocess.run(["gsf", "list", path], capture_output=True, check=True).stdout.decode()
    for line in listing.splitlines():
        if line.startswith("f"):
            size, name = line[1:].lstrip().split(" ", 1)
            if name not in storages:
                sizes[name] = int(size)
    content = subprocess.run(["gsf", "cat", path] + list(sizes), capture_output=True, check=True).stdout
    expect(len(content) == sum(sizes.values()), "%s: the library reads %d bytes" % (path, len(content)))
    return sizes


def sizes_by_inspector(mppinspect, path):
    listing = subprocess.run([mppinspect, "--entries", path], capture_output=True, check=True).stdout.decode()
    rows = [line.rsplit(None, 1) for line in listing.splitlines()[3:]]
    return {name: int(size) for name, size in (row for row in rows if len(row) == 2 and not row[0].endswith("/"))}


def check_sectors(path):
    """Each sector of the file has one owner, and the file ends with its last sector."""
    with open(path, "rb") as file:
        content = file.read()
    sector = 1 << struct.unpack_from("<H", content, 30)[0]
    expect(len(content) % sector == 0, "%s: its size is no whole number of sectors" % path)
    count = len(content) // sector - 1
    tables, directory = struct.unpack_from("<II", content, 44)
    small_table, _, list_sector, list_count = struct.unpack_from("<IIII", content, 60)
    owners = [0] * count
    places = list(struct.unpack_from("<109I", content, 76))
    for _ in range(list_count):
        owners[list_sector] += 1
        words = struct.unpack_from("<%dI" % (sector // 4), content, (list_sector + 1) * sector)
        places += words[:-1]
        list_sector = words[-1]
    table = []
    for place in places[:tables]:
        owners[place] += 1
        table += struct.unpack_from("<%dI" % (sector // 4), content, (place + 1) * sector)

    def follow(first):
        data = b""
        while first != END_OF_CHAIN:
            if first >= count or owners[first] > 1:
                expect(False, "%s: a chain leads to sector %d" % (path, first))
                break
            owners[first] += 1
            data += content[(first + 1) * sector:(first + 2) * sector]
            first = table[first]
        return data

    entries = follow(directory)
    follow(small_table)
    for at in range(0, len(entries), 128):
        kind = entries[at + 66]
        first, size = struct.unpack_from("<IQ", entries, at + 116)
        if kind == 5 or (kind == 2 and size >= 4096):
            expect(len(follow(first)) >= size, "%s: the chain of entry %d is short" % (path, at // 128))
    expect(all(owner == 1 for owner in owners), "%s: %d sectors without an owner, %d with several"
           % (path, owners.count(0), sum(owner > 1 for owner in owners)))


def read_back(path, mppinspect):
    by_olefile, by_library = streams_by_olefile(path), sizes_by_library(path)
    by_inspector = sizes_by_inspector(mppinspect, path)
    # Names with control characters are printed in different ways: the sizes tell.
    sizes = [sorted(readers.values()) for readers in (by_olefile, by_library, by_inspector)]
    expect(sizes[0] and sizes[0] == sizes[1] == sizes[2], "%s: the readers differ on its streams: %r" % (path, sizes))
    check_sectors(path)
    whole = subprocess.run([mppinspect, path], capture_output=True)
    expect(whole.returncode == 0 and whole.stdout, "%s: mppinspect: %r" % (path, whole.stderr))
    return len(by_olefile)


def main():
    tool, mppinspect, templates, source = sys.argv[1:]
    bundles = sorted(glob.glob(source + "/examples/*.zelb") + glob.glob(source + "/tests/golden/bundles/*.zelb"))
    files = streams = 0
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, XDG_CONFIG_HOME=folder, TZ="UTC")
        for template in sorted(glob.glob(templates + "/*.mpp")):
            for bundle in bundles:
                output = os.path.join(folder, "%d.mpp" % files)
                run = subprocess.run([tool, "--template-path", template, bundle, output], env=environment,
                                     stderr=subprocess.PIPE)
                files += 1
                if b"### Exporter SUCCEEDED." in run.stderr:
                    streams += read_back(output, mppinspect)
                else:
                    expect(False, "%s was not exported: %s" % (bundle, run.stderr.decode()))
        expect(set(os.listdir(folder)) == {"%d.mpp" % i for i in range(files)}, "other files beside the outputs")
    expect(files >= 2 and streams > 50 * files // 2, "too little was read: %d files, %d streams" % (files, streams))
    print("%d files with %d streams read back" % (files, streams))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
