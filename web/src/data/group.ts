// Questions about a group: where a node is, to which pile and element it belongs, what the tubes of a section are.
import type { Group, Pile, Section } from "./report.ts";
import type { Vec } from "../geometry/vec.ts";

export const nodeAt = (group: Group, node: number): Vec => [group.x[node], group.y[node], group.z[node]];
export const headOf = (group: Group, pile: Pile): Vec => nodeAt(group, pile.first_node);
export const tipOf = (group: Group, pile: Pile): Vec => nodeAt(group, pile.first_node + pile.nodes - 1);
export const isCapPoint = (pile: Pile): boolean => pile.elements === 0;

/** The index of the pile that has the node; -1 for none. Piles are in the order of their nodes. */
export function pileOfNode(group: Group, node: number): number {
    let low = 0;
    let high = group.piles.length - 1;
    while (low <= high) {
        const middle = (low + high) >> 1;
        const pile = group.piles[middle];
        if (node < pile.first_node) high = middle - 1;
        else if (node >= pile.first_node + pile.nodes) low = middle + 1;
        else return middle;
    }
    return -1;
}

/** The largest diameter of the elements that meet at a node; 0 at a cap point. */
export function diameterAtNode(group: Group, node: number): number {
    const index = pileOfNode(group, node);
    if (index < 0) return 0;
    const pile = group.piles[index];
    const below = node - pile.first_node;
    const above = below - 1;
    const ofElement = (k: number): number => (k >= 0 && k < pile.elements ? group.diameter[pile.first_element + k] : 0);
    return Math.max(ofElement(above), ofElement(below));
}

/** Diameter and wall of each tube of a section, outermost first; one tube unless it is a composite. */
export function tubesOf(group: Group, section: Section): { readonly diameter: number; readonly wall: number }[] {
    const tubes = section.tubes.map((number) => group.sections.get(number)).filter((tube) => tube !== undefined);
    const all = tubes.length > 0 ? tubes : [section];
    return all.map((tube) => ({ diameter: tube.diameter, wall: tube.wall }));
}

/** The steel across a section's wall: the sum over the tubes of a composite. 0 where it is not known. */
export function wallOf(group: Group, number: number): number {
    const section = group.sections.get(number);
    return section ? tubesOf(group, section).reduce((sum, tube) => sum + tube.wall, 0) : 0;
}

/** The material of a section; of a composite the one that all its tubes have. Null for none or several. */
export function materialOf(group: Group, number: number): number | null {
    const section = group.sections.get(number);
    if (!section) return null;
    if (section.tubes.length === 0) return section.material;
    const materials = new Set(section.tubes.map((tube) => group.sections.get(tube)?.material ?? null));
    return materials.size === 1 ? ([...materials][0] ?? null) : null;
}
