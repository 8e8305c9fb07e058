# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The recognition model: x[1,3,48,W], W a multiple of 8, to scores [1,6625,1,W/8], one for each
character of the dictionary, its first being "nothing here"; not yet passed through softmax.

Two transformer blocks stand in the network's neck. OpenCV 4.6 reads them only for a fixed width, so
they are written anew with operators that work for any: all sequences stay [1,120,1,T], products with
weights are convolutions of one pixel, and so is the layer normalisation's mean."""
import numpy as np
from onnx import helper

from onnx_graph import Graph, set_inputs
from simplify import simplify

WIDTH = 120
HEADS = 8


def convert(source, target):
    graph = Graph(source)
    linears, norms = linear_layers(graph), layer_norms(graph)
    assert len(linears) == 9 and len(norms) == 5, (len(linears), len(norms))
    reshapes = [node for node in graph.nodes if node.op_type == "Reshape"]
    entry = reshapes[0].input[0]
    leave = reader(graph, reader(graph, reshapes[-1].output[0], "Transpose").output[0], "Conv")
    head = [node for node in graph.nodes if node.op_type == "MatMul"][-1]
    producers = graph.producers()
    features = producers[producers[head.input[0]].input[0]].input[0]

    neck = Neck(graph)
    x = entry
    for block in range(2):
        attention, output, wide, narrow = linears[4 * block:4 * block + 4]
        before, between = norms[2 * block:2 * block + 2]
        x = neck.add(x, neck.attention(neck.normalised(x, before), folded(attention, before),
                                       output))
        hidden = neck.swish(neck.linear(neck.normalised(x, between), *folded(wide, between)))
        x = neck.add(x, neck.linear(hidden, *narrow))
    x = neck.normalised(x, norms[4])
    weights, bias = graph.weights(leave)
    gamma, beta, _ = norms[4]
    graph.set_weights(leave, weights * gamma[None, :, None, None], bias + weights[:, :, 0, 0] @ beta)
    set_inputs(leave, x, *leave.input[1:])
    graph.output = neck.linear(features, *linears[8])
    graph.nodes += neck.nodes
    simplify(graph)
    graph.save(target, [1, 3, 48, 320], [1, 6625, 1, 40])


def reader(graph, name, kind):
    return next(node for node in graph.users()[name] if node.op_type == kind)


def linear_layers(graph):
    """Weights [in, out] and bias of each product with a matrix, in order."""
    layers = []
    for node in graph.nodes:
        if node.op_type == "MatMul" and node.input[1] in graph.constants:
            add = reader(graph, node.output[0], "Add")
            layers.append((graph.constants[node.input[1]].astype(np.float64),
                           graph.constants[graph.operands(add)[1]].astype(np.float64)))
    return layers


def layer_norms(graph):
    """Scale, offset and epsilon of each layer normalisation, in order."""
    norms, producers = [], graph.producers()
    for node in graph.nodes:
        if node.op_type == "Sqrt":
            epsilon = graph.scalar_operand(producers[node.input[0]])
            scale = reader(graph, reader(graph, node.output[0], "Div").output[0], "Mul")
            offset = reader(graph, scale.output[0], "Add")
            norms.append((graph.constants[graph.operands(scale)[1]].astype(np.float64),
                          graph.constants[graph.operands(offset)[1]].astype(np.float64), epsilon))
    return norms


def folded(layer, norm):
    """The layer with the scale and offset of the normalisation before it."""
    (weights, bias), (gamma, beta, _) = layer, norm
    return weights * gamma[:, None], bias + beta @ weights


class Neck:
    """Makes the nodes of the transformer blocks, each named by its number."""

    def __init__(self, graph):
        self.graph = graph
        self.nodes = []

    def node(self, kind, *inputs, **attributes):
        name = f"neck {len(self.nodes)}"
        self.nodes.append(helper.make_node(kind, inputs, [name], name=name, **attributes))
        return name

    def linear(self, x, weights, bias):
        name = self.node("Conv", x, "", kernel_shape=[1, 1], strides=[1, 1], pads=[0] * 4,
                         group=1, dilations=[1, 1])
        self.graph.set_weights(self.nodes[-1], weights.T[:, :, None, None], bias)
        return name

    def add(self, x, y):
        return self.node("Add", x, y)

    def swish(self, x):
        return self.node("Mul", x, self.node("Sigmoid", x))

    def normalised(self, x, norm):
        """(x − mean) / √(variance + ε), over the channels."""
        mean = np.full((WIDTH, WIDTH), 1 / WIDTH)
        centred = self.linear(x, np.eye(WIDTH) - mean, np.zeros(WIDTH))
        variance = self.linear(self.node("Mul", centred, centred), mean, np.full(WIDTH, norm[2]))
        power = self.graph.constant(f"power {len(self.nodes)}", np.array(-0.5, np.float32))
        return self.node("Mul", centred, self.node("Pow", variance, power))

    def reshape(self, x, shape):
        sizes = self.graph.constant(f"shape {len(self.nodes)}", np.array(shape, np.int64))
        return self.node("Reshape", x, sizes)

    def attention(self, x, layer, output):
        weights, bias = layer
        size = WIDTH // HEADS
        parts = [(weights[:, i * WIDTH:(i + 1) * WIDTH], bias[i * WIDTH:(i + 1) * WIDTH])
                 for i in range(3)]
        parts[0] = tuple(part / np.sqrt(size) for part in parts[0])
        query, key, value = (self.reshape(self.linear(x, *part), [1, HEADS, size, -1])
                             for part in parts)
        query = self.node("Transpose", query, perm=[0, 1, 3, 2])
        value = self.node("Transpose", value, perm=[0, 1, 3, 2])
        share = self.node("Softmax", self.node("MatMul", query, key), axis=3)
        mixed = self.node("Transpose", self.node("MatMul", share, value), perm=[0, 1, 3, 2])
        return self.linear(self.reshape(mixed, [1, WIDTH, 1, -1]), *output)
