// The task with System.IO.Packaging. The protocol is that of bench/drivers/Driver.h.

using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.IO.Packaging;

static class PackagingDriver
{
    sealed class Work
    {
        public readonly List<byte[]> Held = new List<byte[]>();
        public int Relationships;

        public void Print(bool checking)
        {
            long bytes = 0, largest = 0, checksum = 0;
            foreach (byte[] part in Held)
            {
                bytes += part.Length;
                largest = Math.Max(largest, part.Length);
                if (checking) checksum += Crc(part);
            }
            Console.WriteLine("work parts={0} bytes={1} largest={2} relationships={3} checksum={4}",
                Held.Count, bytes, largest, Relationships, checksum);
        }
    }

    static uint Crc(byte[] bytes)
    {
        var table = new uint[256];
        for (uint i = 0; i < 256; ++i)
        {
            uint value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? 0xEDB88320 ^ (value >> 1) : value >> 1;
            table[i] = value;
        }
        uint crc = 0xFFFFFFFF;
        foreach (byte b in bytes) crc = table[(crc ^ b) & 0xFF] ^ (crc >> 8);
        return ~crc;
    }

    static byte[] ReadAll(PackagePart part)
    {
        using (Stream stream = part.GetStream(FileMode.Open, FileAccess.Read))
        using (var memory = new MemoryStream())
        {
            stream.CopyTo(memory);
            return memory.ToArray();
        }
    }

    static Work Pass(string file)
    {
        var work = new Work();
        var seen = new HashSet<Uri>();
        var open = new Queue<PackageRelationshipCollection>();
        using (Package package = Package.Open(file, FileMode.Open, FileAccess.Read))
        {
            open.Enqueue(package.GetRelationships());
            while (open.Count != 0)
            {
                foreach (PackageRelationship relationship in open.Dequeue())
                {
                    ++work.Relationships;
                    if (relationship.TargetMode == TargetMode.External) continue;
                    Uri name = PackUriHelper.ResolvePartUri(relationship.SourceUri, relationship.TargetUri);
                    if (!seen.Add(name) || !package.PartExists(name)) continue;
                    PackagePart part = package.GetPart(name);
                    work.Held.Add(ReadAll(part));
                    open.Enqueue(part.GetRelationships());
                }
            }
        }
        return work;
    }

    static void Main(string[] args)
    {
        int repetitions = int.Parse(args[1]);
        Pass(args[0]).Print(repetitions != 0);
        if (repetitions == 0) return;
        Stopwatch warm = Stopwatch.StartNew();
        long warmMilliseconds = args.Length > 2 ? long.Parse(args[2]) : 0;
        while (warm.ElapsedMilliseconds < warmMilliseconds) Pass(args[0]);
        for (int i = 0; i < repetitions; ++i)
        {
            TimeSpan processorStart = Process.GetCurrentProcess().TotalProcessorTime;
            Stopwatch watch = Stopwatch.StartNew();
            Pass(args[0]);
            watch.Stop();
            TimeSpan processor = Process.GetCurrentProcess().TotalProcessorTime - processorStart;
            Console.WriteLine("ns {0} {1}", (long)(watch.ElapsedTicks * (1e9 / Stopwatch.Frequency)),
                processor.Ticks * 100);
        }
    }
}
