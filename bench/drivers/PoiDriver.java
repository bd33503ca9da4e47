// The task with Apache POI. The protocol is that of bench/drivers/Driver.h.

import com.sun.management.OperatingSystemMXBean;
import java.io.File;
import java.io.InputStream;
import java.lang.management.ManagementFactory;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.zip.CRC32;
import org.apache.poi.openxml4j.opc.OPCPackage;
import org.apache.poi.openxml4j.opc.PackageAccess;
import org.apache.poi.openxml4j.opc.PackagePart;
import org.apache.poi.openxml4j.opc.PackagePartName;
import org.apache.poi.openxml4j.opc.PackageRelationship;
import org.apache.poi.openxml4j.opc.PackagingURIHelper;
import org.apache.poi.openxml4j.opc.RelationshipSource;
import org.apache.poi.openxml4j.opc.TargetMode;
import org.apache.poi.openxml4j.opc.internal.PackagePropertiesPart;
import org.apache.poi.openxml4j.util.ZipSecureFile;

final class PoiDriver {
    private static final OperatingSystemMXBean PROCESS =
            (OperatingSystemMXBean) ManagementFactory.getOperatingSystemMXBean();

    private final ArrayList<byte[]> held = new ArrayList<>();
    private final HashSet<PackagePartName> seen = new HashSet<>();
    private final ArrayDeque<RelationshipSource> open = new ArrayDeque<>();
    private int relationships;

    private void walk(OPCPackage opc) throws Exception {
        open.add(opc);
        while (!open.isEmpty()) {
            for (PackageRelationship relationship : open.remove().getRelationships()) {
                ++relationships;
                if (relationship.getTargetMode() == TargetMode.EXTERNAL) continue;
                PackagePartName name;
                try {
                    name = PackagingURIHelper.createPartName(relationship.getTargetURI());
                } catch (Exception notAPartName) {
                    continue;
                }
                if (!seen.add(name)) continue;
                PackagePart part = opc.getPart(name);
                if (part == null) continue;
                // The core properties are there as an object only: their bytes are parsed and dropped.
                if (!(part instanceof PackagePropertiesPart)) held.add(bytesOf(part));
                open.add(part);
            }
        }
    }

    private static byte[] bytesOf(PackagePart part) throws Exception {
        try (InputStream in = part.getInputStream()) {
            return in.readAllBytes();
        }
    }

    private void print(boolean checking) {
        long bytes = 0, largest = 0, checksum = 0;
        for (byte[] part : held) {
            bytes += part.length;
            largest = Math.max(largest, part.length);
            if (!checking) continue;
            CRC32 crc = new CRC32();
            crc.update(part);
            checksum += crc.getValue();
        }
        System.out.printf("work parts=%d bytes=%d largest=%d relationships=%d checksum=%d%n",
                held.size(), bytes, largest, relationships, checksum);
    }

    private static PoiDriver pass(String file) throws Exception {
        OPCPackage opc = OPCPackage.open(new File(file), PackageAccess.READ);
        try {
            PoiDriver driver = new PoiDriver();
            driver.walk(opc);
            return driver;
        } finally {
            opc.revert();
        }
    }

    public static void main(String[] args) throws Exception {
        ZipSecureFile.setMinInflateRatio(0);  // made packages compress well
        ZipSecureFile.setMaxEntrySize(0xFFFFFFFFL);
        int repetitions = Integer.parseInt(args[1]);
        pass(args[0]).print(repetitions != 0);
        if (repetitions == 0) return;
        long warm = System.nanoTime() + (args.length > 2 ? Long.parseLong(args[2]) : 0) * 1_000_000;
        while (System.nanoTime() < warm) pass(args[0]);
        for (int i = 0; i < repetitions; ++i) {
            long start = System.nanoTime(), processorStart = PROCESS.getProcessCpuTime();
            pass(args[0]);
            long processorEnd = PROCESS.getProcessCpuTime(), end = System.nanoTime();
            System.out.println("ns " + (end - start) + " " + (processorEnd - processorStart));
        }
    }
}
