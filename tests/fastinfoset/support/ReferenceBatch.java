// Runs the reference implementation's converters (the Java FastInfoset library's XML_SAX_FI and
// FI_SAX_XML tools) over many files in one JVM, as the tools themselves would one file each:
//   java -cp FastInfoset.jar ReferenceBatch.java encode|decode LIST
// LIST holds one conversion per line, "IN<TAB>OUT". A conversion that fails prints
// "FAILED IN: reason" and leaves no OUT; the exit status is the number of failures (at most 100).
import com.sun.xml.fastinfoset.tools.FI_SAX_XML;
import com.sun.xml.fastinfoset.tools.TransformInputOutput;
import com.sun.xml.fastinfoset.tools.XML_SAX_FI;
import java.io.BufferedInputStream;
import java.io.BufferedOutputStream;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.InputStream;
import java.io.OutputStream;
import java.nio.file.Files;
import java.nio.file.Paths;

public class ReferenceBatch {
    public static void main(String[] args) throws Exception {
        final boolean encode = args[0].equals("encode");
        int failures = 0;
        for (String line : Files.readAllLines(Paths.get(args[1]))) {
            final String[] files = line.split("\t");
            final TransformInputOutput tool = encode ? new XML_SAX_FI() : new FI_SAX_XML();
            try (InputStream in = new BufferedInputStream(new FileInputStream(files[0]));
                 OutputStream out = new BufferedOutputStream(new FileOutputStream(files[1]))) {
                tool.parse(in, out);
            } catch (Exception e) {
                failures++;
                System.out.println("FAILED " + files[0] + ": " + e);
                new File(files[1]).delete();
            }
        }
        System.exit(Math.min(failures, 100));
    }
}
